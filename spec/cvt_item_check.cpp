#include "spec/cvt_item_check.h"

#include <algorithm>

#include "base/fold.h"
#include "spec/color_text.h"
#include "spec/cvt_value_check.h"
#include "spec/name_pattern.h"

namespace kiv {
namespace {

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
