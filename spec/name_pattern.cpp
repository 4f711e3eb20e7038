#include "spec/name_pattern.h"

#include <vector>

namespace kiv {
namespace {

constexpr std::wstring_view kNotLookedInto = L",~[]`";

bool isClass(wchar_t c) { return c == L'?' || c == L'#' || c == L'@' || c == L'.'; }

bool matchesClass(wchar_t c, wchar_t wildcard) {
  const bool isDigit = c >= L'0' && c <= L'9', isLetter = c >= L'A' && c <= L'Z';
  // The host decides what a letter is beyond these.
  if (wildcard == L'?' || c >= 0x80) return true;
  return wildcard == L'#' ? isDigit : wildcard == L'@' ? isLetter : !isDigit && !isLetter;
}

bool canShareCharacter(wchar_t a, wchar_t b) {
  if (isClass(a)) return isClass(b) || matchesClass(b, a);
  return isClass(b) ? matchesClass(a, b) : a == b;
}

}  // namespace

bool canShareName(std::wstring_view a, std::wstring_view b) {
  if (a.find_first_of(kNotLookedInto) != a.npos || b.find_first_of(kNotLookedInto) != b.npos) return true;
  // shares[j]: the rest of `a` and b[j..] have a name in common.
  std::vector<bool> shares(b.size() + 1), later(b.size() + 1);
  for (std::size_t i = a.size() + 1; i-- > 0; shares.swap(later)) {
    for (std::size_t j = b.size() + 1; j-- > 0;) {
      const bool aEnds = i == a.size(), bEnds = j == b.size();
      if (!aEnds && a[i] == L'*') {
        shares[j] = later[j] || (!bEnds && shares[j + 1]);
      } else if (!bEnds && b[j] == L'*') {
        shares[j] = shares[j + 1] || (!aEnds && later[j]);
      } else {
        shares[j] = aEnds || bEnds ? aEnds && bEnds : canShareCharacter(a[i], b[j]) && later[j + 1];
      }
    }
  }
  return later[0];
}

}  // namespace kiv
