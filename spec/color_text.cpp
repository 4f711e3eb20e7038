#include "spec/color_text.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <optional>

#include "base/fold.h"

namespace kiv {
namespace {

// Japanese files have full-width digits too, which the C library of Windows reads in integers.
std::optional<int> digit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'０' && c <= L'９') return c - L'０';
  return std::nullopt;
}

}  // namespace

int colorNumber(std::wstring_view given) {
  const std::wstring_view text = base::trim(given);
  const size_t colon = text.find(L':');
  const size_t blank = text.find(L' ');
  if (colon == text.npos && blank == text.npos) return leadingInteger(text);
  const bool cutAtColon = colon != text.npos && (blank == text.npos || colon > blank);
  const size_t cut = cutAtColon ? colon : blank;
  return std::max(leadingInteger(text.substr(0, cut)), leadingInteger(text.substr(cut + 1)));
}

std::wstring colorFileText(int number) {
  if (number == kColorByBlock) return L"BYBLOCK";
  return number == kColorByLayer ? L"BYLAYER" : std::to_wstring(number);
}

int colorNumberOfFileText(std::wstring_view given) {
  const std::wstring text = base::upper(given);
  if (text.find(L"BYLAYER") != text.npos) return kColorByLayer;
  if (text.find(L"BYBLOCK") != text.npos) return kColorByBlock;
  return leadingInteger(text);
}

int leadingInteger(std::wstring_view text) {
  size_t at = 0;
  while (at < text.size() && (text[at] == L' ' || (text[at] >= L'\t' && text[at] <= L'\r'))) ++at;
  const bool negative = at < text.size() && text[at] == L'-';
  if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) ++at;
  long long value = 0;
  for (std::optional<int> next; at < text.size() && (next = digit(text[at])); ++at) {
    value = std::min<long long>(value * 10 + *next, INT_MAX + 1LL);
  }
  return static_cast<int>(std::clamp<long long>(negative ? -value : value, INT_MIN, INT_MAX));
}

bool isInteger(std::wstring_view text) {
  std::wstring_view rest = base::trim(text);
  if (!rest.empty() && (rest.front() == L'-' || rest.front() == L'+')) rest.remove_prefix(1);
  if (rest.empty()) return false;
  long long value = 0;
  for (const wchar_t c : rest) {
    const std::optional<int> next = digit(c);
    if (!next || value > INT_MAX) return false;
    value = value * 10 + *next;
  }
  return value == std::abs(static_cast<long long>(leadingInteger(text)));
}

}  // namespace kiv
