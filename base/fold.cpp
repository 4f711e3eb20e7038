#include "base/fold.h"

#include <algorithm>

namespace base {
namespace {

wchar_t upperGreek(wchar_t c) {
  if (c == 0x3AC) return 0x386;
  if (c >= 0x3AD && c <= 0x3AF) return static_cast<wchar_t>(c - 0x25);
  if (c == 0x3C2) return 0x3A3;  // the final sigma has no capital of its own
  if (c >= 0x3B1 && c <= 0x3CB) return static_cast<wchar_t>(c - 0x20);
  if (c == 0x3CC) return 0x38C;
  if (c == 0x3CD || c == 0x3CE) return static_cast<wchar_t>(c - 0x3F);
  return c;
}

// Pairs of neighbours; the parity of the capital changes in the middle of the block.
wchar_t upperLatinExtended(wchar_t c) {
  const bool oddCapitals = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  if (c == 0x131 || c == 0x138 || c == 0x149 || c == 0x17F || c == 0x178) return c;
  if (oddCapitals) return static_cast<wchar_t>(c % 2 == 0 ? c - 1 : c);
  return static_cast<wchar_t>(c % 2 == 1 ? c - 1 : c);
}

bool isBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r'; }

}  // namespace

wchar_t upper(wchar_t c) {
  if (c >= L'a' && c <= L'z') return static_cast<wchar_t>(c - 0x20);
  if (c < 0x80) return c;
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<wchar_t>(c - 0x20);
  if (c == 0xFF) return 0x178;
  if (c >= 0x100 && c <= 0x17F) return upperLatinExtended(c);
  if (c >= 0x3AC && c <= 0x3CE) return upperGreek(c);
  if (c >= 0x430 && c <= 0x44F) return static_cast<wchar_t>(c - 0x20);
  if (c >= 0x450 && c <= 0x45F) return static_cast<wchar_t>(c - 0x50);
  if (c >= 0x2170 && c <= 0x217F) return static_cast<wchar_t>(c - 0x10);  // Roman numerals
  if (c >= 0xFF41 && c <= 0xFF5A) return static_cast<wchar_t>(c - 0x20);  // full-width letters
  return c;
}

std::wstring upper(std::wstring_view text) {
  std::wstring result(text);
  for (wchar_t& c : result) c = upper(c);
  return result;
}

bool equalFolded(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && startsWithFolded(a, b);
}

bool startsWithFolded(std::wstring_view text, std::wstring_view prefix) {
  return text.size() >= prefix.size() &&
         std::equal(prefix.begin(), prefix.end(), text.begin(),
                    [](wchar_t x, wchar_t y) { return x == y || upper(x) == upper(y); });
}

bool endsWithFolded(std::wstring_view text, std::wstring_view ending) {
  return text.size() >= ending.size() && equalFolded(text.substr(text.size() - ending.size()), ending);
}

std::wstring_view trim(std::wstring_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace base
