#include "spec/cvt_item_check.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "base/fold.h"
#include "spec/value_forms.h"

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

// Can one name match both patterns? Both upper-cased. False only when none can: sets, inverted patterns,
// alternatives and escaped characters are not looked into.
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

// One that opens or closes nothing, because it does not stand on a line of its own. In names braces stand in
// pairs.
bool endsInBrace(std::wstring_view value) {
  const auto opening = std::count(value.begin(), value.end(), L'{');
  const auto closing = std::count(value.begin(), value.end(), L'}');
  return opening != closing || value.find(L" {") != value.npos || value.starts_with(L"{ ");
}

// Kinds of which a selection takes only objects that meet every condition.
bool isSelectedBy(int kind, int section) {
  const bool hasStyles = section == kTextSection || section == kOtherSection;
  return kind == kLayerKind || kind == kLinetypeKind || kind == kColorKind ||
         (kind == kFontKind && hasStyles);
}

}  // namespace

CvtItemCheck::CvtItemCheck(int section, const Item& item, const CvtLine& line, CvtDiagnostics& diagnostics)
    : section_(section),
      item_(item),
      line_(line),
      diagnostics_(diagnostics),
      parts_(splitRuleLine(line.text)),
      given_(base::upper(parts_.value)) {}

void CvtItemCheck::checkCondition(const std::vector<Item>& earlier) {
  checkItem(false);
  if (item_.inverted && !parts_.sign.ends_with(L"<>")) report(CvtProblem::kReadAsInverted, {});
  if (std::any_of(earlier.begin(), earlier.end(), [this](const Item& other) { return excludes(other); })) {
    report(CvtProblem::kNothingInCommon, item_.key());
  }
}

void CvtItemCheck::checkResult() {
  checkItem(true);
  if (parts_.sign.ends_with(L"<>")) report(CvtProblem::kInvertedResult, given_);
}

void CvtItemCheck::checkItem(bool asResult) {
  const bool nameless = item_.kind == kVariableKind && item_.variable.empty();
  if (nameless || !hasEffect(item_.kind, section_, asResult)) report(CvtProblem::kNoEffect, item_.key());
  if (given_.find_first_of(L"<>,") != given_.npos) report(CvtProblem::kAmbiguousValue, given_);
  if (parts_.sign != L"=" && parts_.sign != L"<>") report(CvtProblem::kOtherSign, parts_.sign);
  if (endsInBrace(given_)) report(CvtProblem::kBraceInLine, {});
  if (!hasEffect(item_.kind, section_, asResult)) return;
  if (const auto doubt = doubtOfValue({section_, item_.kind, item_.variable, parts_.value, !asResult})) {
    report(doubt->problem, doubt->detail);
  }
}

bool CvtItemCheck::excludes(const Item& earlier) const {
  if (item_.kind != earlier.kind || item_.inverted || earlier.inverted) return false;
  if (section_ == kLayerSettingSection || !isSelectedBy(item_.kind, section_)) return false;
  return item_.kind == kColorKind ? colorNumber(item_.value) != colorNumber(earlier.value)
                                  : !canShareName(item_.value, earlier.value);
}

void CvtItemCheck::report(CvtProblem problem, const std::wstring& detail) {
  diagnostics_.push_back({problem, line_.number, line_.text, detail});
}

}  // namespace kiv
