#include "ui/item_inputs.h"

#include <algorithm>
#include <iterator>

#include "spec/item_kinds.h"
#include "ui/value_typing.h"

namespace kiv {
namespace {

using Offer = ItemInput::Offer;
using Typing = ItemInput::Typing;

constexpr Offer kNothing;
constexpr Offer kLayers{layerChoices, kLayerCreationSection};
constexpr Offer kLinetypes{linetypeChoices, kLinetypeSection};
constexpr Offer kTextStyles{textStyleChoices, kFontSection};
constexpr Offer kColors{colorChoices}, kHeights{textHeightChoices}, kTextLists{textListChoices},
    kLineweights{lineweightChoices}, kTransparencies{transparencyChoices}, kOnOff{switchChoices};

constexpr Typing kAnyText;
constexpr Typing kNumber{nullptr, checkedNumber}, kScale{nullptr, checkedScale};
constexpr Typing kLineweight{lineweightBeginning, checkedLineweight};
constexpr Typing kTransparency{transparencyBeginning, checkedTransparency};
constexpr Typing kSwitch{switchBeginning, checkedSwitch};

constexpr ItemInput kInputs[] = {
    {kLayerKind, L"画層", 40021, 40031, kLayers, kAnyText},
    {kLinetypeKind, L"線種", 40022, 40032, kLinetypes, kAnyText},
    {kColorKind, L"色", 40023, 40033, kColors, kNumber},
    {kFontKind, L"字体", 40024, 40034, kTextStyles, kAnyText},
    {kTextHeightKind, L"文字高さ", 40025, 40035, kHeights, kNumber},
    {kTextAngleKind, L"文字角度", 40026, 40036, kNothing, kNumber},
    {kWidthFactorKind, L"文字幅高比", 40027, 40037, kNothing, kNumber},
    {kVariableKind, L"ｼｽﾃﾑ変数", 40028, 40038, kNothing, kAnyText},
    {kTextListKind, L"文字列の一致", 40029, 0, kTextLists, kAnyText},
    {kLineweightKind, L"線幅値", 40050, 40070, kLineweights, kLineweight},
    {kTransparencyKind, L"透過性", 40051, 40071, kTransparencies, kTransparency},
    {kLinetypeScaleKind, L"線種尺度", 40052, 40072, kNothing, kScale},
    {kVisibilityKind, L"表示", 40053, 40073, kOnOff, kSwitch},
    {kLockKind, L"ロック", 40054, 40074, kOnOff, kSwitch},
    {kFreezeKind, L"フリーズ", 40055, 40075, kOnOff, kSwitch},
    {kPlotKind, L"印刷", 40056, 40076, kOnOff, kSwitch},
};

const ItemInput* find(auto matches) {
  const auto found = std::ranges::find_if(kInputs, matches);
  return found == std::end(kInputs) ? nullptr : found;
}

}  // namespace

const ItemInput* itemInput(int kind) {
  return find([&](const ItemInput& row) { return row.kind == kind; });
}

const ItemInput* itemInputOfConditionCommand(int command) {
  return find([&](const ItemInput& row) { return row.conditionCommand == command; });
}

const ItemInput* itemInputOfResultCommand(int command) {
  return find([&](const ItemInput& row) { return command != 0 && row.resultCommand == command; });
}

int sectionOfNames(int kind) {
  const ItemInput* input = itemInput(kind);
  return input == nullptr ? 0 : input->offer.namesSection;
}

std::vector<std::wstring> offeredValues(int kind, int section, const std::vector<std::wstring>& usedNames,
                                        std::wstring_view listFolder) {
  const ItemInput* input = itemInput(kind);
  if (input == nullptr || input->offer.choices == nullptr) return {};
  std::vector<std::wstring> values = input->offer.choices({section == kLayerSettingSection, listFolder});
  if (sectionOfNames(kind) != 0) addMissing(values, usedNames);
  return values;
}

std::wstring completedValue(int kind, std::wstring_view typed) {
  const ItemInput* input = itemInput(kind);
  const bool isFree = input == nullptr || input->typing.beginning == nullptr;
  return isFree ? std::wstring(typed) : input->typing.beginning(typed);
}

std::optional<std::wstring> checkedValue(int kind, std::wstring_view typed) {
  const ItemInput* input = itemInput(kind);
  const bool isFree = input == nullptr || input->typing.checked == nullptr;
  return isFree ? std::wstring(typed) : input->typing.checked(typed);
}

}  // namespace kiv
