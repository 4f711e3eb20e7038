#include "cli/convert/summary.h"

#include <algorithm>

#include "cli/commands.h"
#include "cli/language/language.h"
#include "cli/reports/change_text.h"
#include "cli/text_width.h"

namespace kivcli {
namespace {

constexpr std::size_t kMostSettings = 20, kMostProblems = 10;  // lines
constexpr std::size_t kDrawingsInSight = 20;                   // of which the lines still stand on the screen

struct Row {
  int section;
  bool isEntry;
  std::wstring title;
  std::size_t changed, refused;
};

// Of what did something; the entries of a list are one.
std::vector<Row> rowsOf(const std::vector<SettingTotals>& settings) {
  std::vector<Row> rows;
  for (const SettingTotals& totals : settings) {
    if (totals.changed + totals.refused == 0) continue;
    if (totals.isEntry && !rows.empty() && rows.back().isEntry && rows.back().section == totals.section) {
      rows.back().changed += totals.changed, rows.back().refused += totals.refused;
      continue;
    }
    rows.push_back({totals.section, totals.isEntry,
                    totals.isEntry ? sectionName(totals.section) : totals.title, totals.changed,
                    totals.refused});
  }
  return rows;
}

}  // namespace

void Summary::add(const DrawingReport& report) {
  ++(report.outcome == Outcome::kConverted      ? converted_
     : report.outcome == Outcome::kWithProblems ? withProblems_
                                                : failed_);
  changing_ += report.counts.all() > 0 ? 1 : 0;
  if (report.outcome != Outcome::kNotConverted) settings_.add(report.settings);
  if (report.outcome == Outcome::kConverted || problems_.size() == kMostProblems) return;
  const std::vector<std::wstring>& messages = report.messages;
  problems_.push_back(messages.empty() ? report.given
                      : messages.size() == 1
                          ? messages[0]
                          : tr(L"%1 (and %2 more)", {messages[0], std::to_wstring(messages.size() - 1)}));
}

std::vector<std::wstring> Summary::lines(std::optional<std::size_t> columns) const {
  std::vector<std::wstring> lines;
  // A dry run has told of each drawing what its settings would change.
  if (!isDryRun_ || all() > 1) addSettings(lines);
  if (all() > kDrawingsInSight) addProblems(lines);
  if (columns) {
    for (std::wstring& line : lines) line = shortened(line, *columns);
  }
  if (skipped_ > 0)
    lines.push_back(tr(L"problems that an earlier run had with the skipped drawings are not told again"));
  lines.push_back(isDryRun_ ? lastLineOfDryRun() : lastLine());
  return lines;
}

int Summary::exitStatus() const { return withProblems_ + failed_ == 0 ? kAllDone : kSomeFailed; }

void Summary::addSettings(std::vector<std::wstring>& lines) const {
  std::vector<Row> rows = rowsOf(settings_.all());
  if (rows.empty()) return;
  const std::size_t more = rows.size() > kMostSettings ? rows.size() - kMostSettings + 1 : 0;
  rows.resize(rows.size() - more);
  std::size_t width = 0;
  for (const Row& row : rows) width = std::max(width, std::to_wstring(row.changed).size());
  lines.push_back(isDryRun_ ? tr(L"would be changed by each setting:") : tr(L"changed by each setting:"));
  for (const Row& row : rows) {
    const std::wstring changed = std::to_wstring(row.changed);
    std::wstring line = L"  " + std::wstring(width - changed.size(), L' ') + changed + L"  ";
    if (row.refused > 0) line += L"(" + tr(L"refused: %1", {std::to_wstring(row.refused)}) + L") ";
    lines.push_back(line + row.title);
  }
  if (more > 0)
    lines.push_back(L"  " + tr(L"and %1 settings more; --report tells of all", {std::to_wstring(more)}));
}

void Summary::addProblems(std::vector<std::wstring>& lines) const {
  if (problems_.empty()) return;
  lines.push_back(tr(L"drawings with problems:"));
  for (const std::wstring& problem : problems_) lines.push_back(L"  " + problem);
  if (const std::size_t more = withProblems_ + failed_ - problems_.size(); more > 0)
    lines.push_back(L"  " + tr(L"and %1 drawings more", {std::to_wstring(more)}));
}

std::wstring Summary::lastLine() const {
  const std::size_t saved = converted_ + withProblems_;
  const std::initializer_list<std::wstring> counts = {std::to_wstring(saved), std::to_wstring(all())};
  std::wstring line = failed_ == 0 && all() == 1 ? tr(L"1 drawing converted")
                      : failed_ == 0             ? tr(L"%1 drawings converted", counts)
                      : all() == 1               ? tr(L"%1 of 1 drawing converted", counts)
                                                 : tr(L"%1 of %2 drawings converted", counts);
  if (skipped_ > 0) line += tr(L", %1 skipped", {std::to_wstring(skipped_)});
  if (withProblems_ > 0) line += tr(L", %1 with problems", {std::to_wstring(withProblems_)});
  return line;
}

std::wstring Summary::lastLineOfDryRun() const {
  std::wstring line = tr(L"a dry run, nothing was written: %1 of %2 drawings would change",
                         {std::to_wstring(changing_), std::to_wstring(all())});
  if (skipped_ > 0) line += tr(L", %1 skipped", {std::to_wstring(skipped_)});
  if (withProblems_ > 0) line += tr(L", %1 with problems", {std::to_wstring(withProblems_)});
  if (failed_ > 0) line += tr(L", %1 cannot be converted", {std::to_wstring(failed_)});
  return line;
}

}  // namespace kivcli
