#include "spec/cvt_item_check.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/fold.h"
#include "base/lineweights.h"
#include "base/numbers.h"
#include "spec/dimension_catalogue.h"
#include "spec/item_kinds.h"
#include "spec/value_forms.h"

namespace kiv {
namespace {

using Doubt = std::optional<ValueDoubt>;

Doubt readAs(std::wstring text) { return ValueDoubt{CvtProblem::kReadAsOther, std::move(text)}; }
Doubt impossible(const GivenValue& given) { return ValueDoubt{CvtProblem::kImpossibleValue, given.text}; }

bool isOfLayer(const GivenValue& given) {
  return given.section == kLayerSettingSection || given.section == kLayerCreationSection;
}

Doubt doubtOfName(const GivenValue& given) {
  if (given.text.empty()) return ValueDoubt{CvtProblem::kNoName, {}};
  return given.text.front() == L'=' ? readAs(given.text) : std::nullopt;
}

Doubt doubtOfColor(const GivenValue& given) {
  const int number = colorNumberOfFileText(given.text);
  if (isOfLayer(given) && !isLayerColor(number)) {
    return ValueDoubt{CvtProblem::kNotALayerColor, given.text};
  }
  if (number < kColorByBlock || number > kColorByLayer) return impossible(given);
  const std::wstring inFile = colorFileText(number);
  const bool saysSo = base::isInteger(given.text) || base::equalFolded(given.text, inFile) ||
                      base::equalFolded(given.text, colorText(number));
  return saysSo ? std::nullopt : readAs(inFile);
}

Doubt doubtOfInteger(const GivenValue& given) {
  return base::isInteger(given.text) ? std::nullopt
                                     : readAs(std::to_wstring(base::leadingInteger(given.text)));
}

// The drawing's variables are set as 16-bit integers, of which the low bits stay.
Doubt doubtOfVariableInteger(const GivenValue& given) {
  const int number = base::leadingInteger(given.text);
  const int set = given.section == kDimensionSettingSection ? static_cast<short>(number) : number;
  return set == number ? doubtOfInteger(given) : readAs(std::to_wstring(set));
}

Doubt doubtOfReal(const GivenValue& given) {
  return base::isReal(given.text) ? std::nullopt : readAs(base::numberText(base::leadingReal(given.text)));
}

Doubt doubtOfHeight(const GivenValue& given) {
  const HeightValue height = heightValue(given.text);
  if (given.asCondition || !height.isFactor) return doubtOfReal(given);
  const std::wstring_view factor = std::wstring_view(given.text).substr(0, given.text.size() - 1);
  return base::isReal(factor) ? std::nullopt : readAs(base::numberText(height.number) + L"x");
}

// A text that is cut at the end but for the characters that the kind lets stand there.
std::wstring withoutUnit(std::wstring_view text, std::wstring_view unit) {
  const std::wstring folded = base::upper(base::trim(text));
  return folded.ends_with(unit) ? folded.substr(0, folded.size() - unit.size()) : folded;
}

bool saysLineweight(const std::wstring& text, const base::Lineweight& weight) {
  if (weight.hundredths < 0) return base::equalFolded(text, weight.text);
  const std::wstring millimetres = withoutUnit(text, L"MM");
  return base::isReal(millimetres) &&
         std::abs(base::leadingReal(millimetres) * 100 - weight.hundredths) < 1e-6;
}

Doubt doubtOfLineweight(const GivenValue& given) {
  const int number = given.asCondition ? lineWeightNumber(given.text) : lineWeightResult(given.text);
  const auto all = base::lineweights();
  const auto weight = std::find_if(
      all.begin(), all.end(), [number](const base::Lineweight& row) { return row.hundredths == number; });
  // Layers have no other object to take it from.
  const bool ofOther = number == -1 || number == -2;
  if (weight == all.end() || (ofOther && isOfLayer(given))) return impossible(given);
  return saysLineweight(given.text, *weight) ? std::nullopt : readAs(weight->text);
}

Doubt doubtOfTransparency(const GivenValue& given) {
  const Transparency value = transparencyValue(given.text);
  if (value.method != Transparency::Method::kPercent) {
    if (!isOfLayer(given)) return std::nullopt;
    return given.asCondition ? impossible(given) : readAs(L"0");
  }
  if (value.percent < 0 || value.percent > 100) return impossible(given);
  return base::isInteger(withoutUnit(given.text, L"%")) ? std::nullopt
                                                        : readAs(std::to_wstring(value.percent));
}

// Of a text that drawings get as it stands.
Doubt doubtOfCase(const GivenValue& given) {
  const std::wstring folded = base::upper(given.text);
  // A condition does not mind the case.
  if (given.asCondition || folded == given.text) return std::nullopt;
  return ValueDoubt{CvtProblem::kCaseLost, folded};
}

// A name that is found keeps the drawing's own case; one that is given anew does not.
Doubt doubtOfNewName(const GivenValue& given) {
  const Doubt doubt = doubtOfName(given);
  return doubt ? doubt : doubtOfCase(given);
}

Doubt doubtOfVariable(const GivenValue& given) {
  const int row = findDimensionVariable(given.variable);
  if (row < 0) return std::nullopt;
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (variable.isInteger()) return doubtOfVariableInteger(given);
  if (variable.isReal()) return doubtOfReal(given);
  if (variable.isDrawnText()) return doubtOfCase(given);
  if (!variable.isArrow()) return doubtOfName(given);
  return blockNameOfDisplayForm(given.text) ? std::nullopt : impossible(given);
}

}  // namespace

std::optional<ValueDoubt> doubtOfValue(const GivenValue& given) {
  switch (given.kind) {
    case kLayerKind:
      return isOfLayer(given) ? doubtOfNewName(given) : doubtOfName(given);
    case kLinetypeKind:
      return doubtOfName(given);
    case kFontKind:
      return given.section == kFontSection ? doubtOfNewName(given) : doubtOfName(given);
    case kColorKind:
      return doubtOfColor(given);
    case kTextHeightKind:
      return doubtOfHeight(given);
    case kTextAngleKind:
    case kWidthFactorKind:
    case kLinetypeScaleKind:
      return doubtOfReal(given);
    case kVariableKind:
      return doubtOfVariable(given);
    case kLineweightKind:
      return doubtOfLineweight(given);
    case kTransparencyKind:
      return doubtOfTransparency(given);
    case kVisibilityKind:
    case kLockKind:
    case kFreezeKind:
    case kPlotKind:
      return onOffValue(given.text) ? std::nullopt : impossible(given);
    default:
      return std::nullopt;
  }
}

}  // namespace kiv
