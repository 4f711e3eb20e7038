#include "cli/convert/progress.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <utility>

#include "base/terminal.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/text_width.h"

namespace kivcli {
namespace {

constexpr double kBetweenLines = 0.1, kUntilRateIsKnown = 1;  // seconds

double steadySeconds() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// "1:02:03", or "2:03" below an hour.
std::wstring durationText(double seconds) {
  const auto whole = static_cast<long long>(std::llround(seconds));
  wchar_t text[32];
  if (whole >= 3600) {
    std::swprintf(text, std::size(text), L"%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60, whole % 60);
  } else {
    std::swprintf(text, std::size(text), L"%lld:%02lld", whole / 60, whole % 60);
  }
  return text;
}

std::wstring rateText(double rate) {
  wchar_t text[32];
  std::swprintf(text, std::size(text), rate < 10 ? L"%.1f" : L"%.0f", rate);
  return text;
}

std::wstring barOf(double share, std::size_t columns) {
  const auto full = static_cast<std::size_t>(share * static_cast<double>(columns));
  return L"[" + std::wstring(full, L'#') + std::wstring(columns - full, L'-') + L"] ";
}

}  // namespace

ProgressLine::ProgressLine(std::size_t total, Clock clock)
    : total_(total), clock_(std::move(clock)), start_(clock_()) {}

std::optional<std::wstring> ProgressLine::next(std::size_t done, std::size_t columns) {
  const double now = clock_();
  if (drawn_ && now - *drawn_ < kBetweenLines) return std::nullopt;
  drawn_ = now;
  constexpr std::size_t kShortestBar = 10, kLongestBar = 40, kAroundBar = 3;
  std::wstring text = tr(L"%1 of %2 drawings", {std::to_wstring(done), std::to_wstring(total_)});
  if (const double passed = now - start_; done > 0 && passed >= kUntilRateIsKnown) {
    const double rate = static_cast<double>(done) / passed;
    text += tr(L", %1 per second, %2 left",
               {rateText(rate), durationText(static_cast<double>(total_ - done) / rate)});
  }
  if (const std::size_t needed = columnsOf(text) + kAroundBar; needed + kShortestBar <= columns) {
    const double share = total_ == 0 ? 1 : static_cast<double>(done) / static_cast<double>(total_);
    text = barOf(share, std::min(columns - needed, kLongestBar)) + text;
  }
  return std::wstring(fitting(text, columns));
}

std::wstring ProgressLine::total() const {
  const double passed = clock_() - start_;
  const double rate = passed > 0 ? static_cast<double>(total_) / passed : 0;
  return tr(L"%1 drawings in %2, %3 per second",
            {std::to_wstring(total_), durationText(passed), rateText(rate)});
}

ProgressDisplay::ProgressDisplay(std::size_t total) : line_(total, steadySeconds) {}

void ProgressDisplay::show(std::size_t done) {
  const std::optional<std::size_t> columns = base::terminalColumns(stderr);
  // What stands in the last column may move the cursor to the next line.
  if (!columns || *columns < 2) return;
  const std::optional<std::wstring> line = line_.next(done, *columns - 1);
  if (!line) return;
  hide();
  static_cast<void>(base::writeText(stderr, *line + L"\r"));
  shown_ = columnsOf(*line);
}

void ProgressDisplay::finish() {
  hide();
  if (base::terminalColumns(stderr)) complain(line_.total());
}

void ProgressDisplay::hide() {
  if (shown_ == 0) return;
  static_cast<void>(base::writeText(stderr, std::wstring(shown_, L' ') + L"\r"));
  shown_ = 0;
}

}  // namespace kivcli
