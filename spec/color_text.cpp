#include "spec/color_text.h"

#include <algorithm>
#include <climits>
#include <cstdlib>

#include "base/fold.h"

namespace kiv {
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
  for (; at < text.size() && text[at] >= L'0' && text[at] <= L'9'; ++at) {
    value = std::min<long long>(value * 10 + (text[at] - L'0'), INT_MAX + 1LL);
  }
  return static_cast<int>(std::clamp<long long>(negative ? -value : value, INT_MIN, INT_MAX));
}

bool isInteger(std::wstring_view text) {
  std::wstring_view digits = base::trim(text);
  if (!digits.empty() && (digits.front() == L'-' || digits.front() == L'+')) digits.remove_prefix(1);
  while (digits.size() > 1 && digits.front() == L'0') digits.remove_prefix(1);
  return digits == std::to_wstring(std::abs(static_cast<long long>(leadingInteger(text))));
}

}  // namespace kiv
