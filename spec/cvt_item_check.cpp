#include "spec/cvt_item_check.h"

#include <algorithm>

#include "spec/color_text.h"
#include "spec/dimension_catalogue.h"
#include "spec/name_pattern.h"

namespace kiv {
namespace {

// Behind the key, which may hold anything.
bool equalsComesFirst(std::wstring_view line) {
  const std::wstring_view rest = line.substr(std::min(line.find(L']'), line.size()));
  return rest.find(L'=') < rest.find(L"<>");
}

// Kinds of which a selection takes only objects that meet every condition.
bool isSelectedBy(int kind, int section) {
  const bool hasStyles = section == kTextSection || section == kOtherSection;
  return kind == kLayerKind || kind == kLinetypeKind || kind == kColorKind ||
         (kind == kFontKind && hasStyles);
}

}  // namespace

bool isLayerColor(int number) { return number > kColorByBlock && number < kColorByLayer; }

CvtItemCheck::CvtItemCheck(int section, const Item& item, const CvtLine& line, CvtDiagnostics& diagnostics)
    : section_(section),
      item_(item),
      line_(line),
      diagnostics_(diagnostics),
      given_(splitRuleLine(line.folded).value),
      hasEquals_(equalsComesFirst(line.folded)) {}

void CvtItemCheck::checkCondition(const std::vector<Item>& earlier) {
  checkItem(false);
  if (item_.inverted && hasEquals_) report(CvtProblem::kReadAsInverted, {});
  if (std::any_of(earlier.begin(), earlier.end(), [this](const Item& other) { return excludes(other); })) {
    report(CvtProblem::kNothingInCommon, item_.key());
  }
}

void CvtItemCheck::checkResult() {
  checkItem(true);
  if (!hasEquals_) report(CvtProblem::kInvertedResult, given_);
  if (isShownVariable(item_.variable) && splitRuleLine(line_.text).value != given_) {
    report(CvtProblem::kCaseLost, given_);
  }
}

void CvtItemCheck::checkItem(bool asResult) {
  const bool nameless = item_.kind == kVariableKind && item_.variable.empty();
  if (nameless || !hasEffect(item_.kind, section_, asResult)) report(CvtProblem::kNoEffect, item_.key());
  if (given_.find_first_of(L"<>,") != given_.npos) report(CvtProblem::kAmbiguousValue, given_);
  const bool isOfLayer = item_.kind == kColorKind && section_ == kLayerSettingSection;
  if (isOfLayer && !isLayerColor(colorNumber(item_.value))) report(CvtProblem::kNotALayerColor, given_);
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
