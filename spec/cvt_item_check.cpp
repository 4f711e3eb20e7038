#include "spec/cvt_item_check.h"

#include <algorithm>

#include "base/fold.h"
#include "spec/color_text.h"
#include "spec/dimension_catalogue.h"
#include "spec/leading_number.h"
#include "spec/name_pattern.h"

namespace kiv {
namespace {

// Behind the key, which may hold anything.
bool equalsComesFirst(std::wstring_view line) {
  const std::wstring_view rest = line.substr(std::min(line.find(L']'), line.size()));
  return rest.find(L'=') < rest.find(L"<>");
}

bool isWholeNumber(std::wstring_view text) {
  if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) text.remove_prefix(1);
  return !text.empty() && text.find_first_not_of(L"0123456789") == text.npos;
}

// Kinds of which a selection takes only objects that meet every condition.
bool isSelectedBy(int kind, int section) {
  const bool hasStyles = section == kTextSection || section == kOtherSection;
  return kind == kLayerKind || kind == kLinetypeKind || kind == kColorKind ||
         (kind == kFontKind && hasStyles);
}

}  // namespace

bool isLayerColor(int number) { return number > kColorByBlock && number < kColorByLayer; }

std::optional<VariableDoubt> doubtOfVariable(std::wstring_view variable, const std::wstring& text,
                                             bool asCondition) {
  const int row = findDimensionVariable(variable);
  if (row < 0) return std::nullopt;
  using Type = DimensionVariable::Type;
  const Type type = dimensionCatalogue()[static_cast<size_t>(row)].type;
  if (type == Type::kInteger && !isWholeNumber(text)) {
    return VariableDoubt{CvtProblem::kReadAsNumber, std::to_wstring(leadingInteger(text))};
  }
  if (type == Type::kReal && !startsWithNumber(text)) {
    return VariableDoubt{CvtProblem::kReadAsNumber, L"0"};
  }
  const std::wstring folded = base::upper(text);
  if (asCondition || !isShownVariable(variable) || folded == text) return std::nullopt;
  return VariableDoubt{CvtProblem::kCaseLost, folded};
}

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
}

void CvtItemCheck::checkItem(bool asResult) {
  const bool nameless = item_.kind == kVariableKind && item_.variable.empty();
  if (nameless || !hasEffect(item_.kind, section_, asResult)) report(CvtProblem::kNoEffect, item_.key());
  if (given_.find_first_of(L"<>,") != given_.npos) report(CvtProblem::kAmbiguousValue, given_);
  if (const auto doubt = doubtOfVariable(item_.variable, splitRuleLine(line_.text).value, !asResult)) {
    report(doubt->problem, doubt->readAs);
  }
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
