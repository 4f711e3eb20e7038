#include "ui/item_pickers.h"

#include <algorithm>
#include <iterator>

#include "spec/item_kinds.h"
#include "ui/value_picker.h"

namespace kiv {
namespace {

std::unique_ptr<CSelBase> makeValuePicker(PickerOwner& owner, PickHandOver& pick,
                                          const PickerRequest& request) {
  auto picker =
      std::make_unique<CSelDlg>(owner, request.section, request.kind, request.side, request.present, pick);
  picker->setListFolder(request.listFolder);
  return picker;
}

// No row yet: dimension variables (kind 8) and the entries of the five list sections (kinds 51 to 55).
constexpr ItemPicker kPickers[] = {
    {kLayerKind, kValuePickerSlot, makeValuePicker},
    {kLinetypeKind, kValuePickerSlot, makeValuePicker},
    {kColorKind, kValuePickerSlot, makeValuePicker},
    {kFontKind, kValuePickerSlot, makeValuePicker},
    {kTextHeightKind, kValuePickerSlot, makeValuePicker},
    {kTextAngleKind, kValuePickerSlot, makeValuePicker},
    {kWidthFactorKind, kValuePickerSlot, makeValuePicker},
    {kTextListKind, kValuePickerSlot, makeValuePicker},
    {kLineweightKind, kValuePickerSlot, makeValuePicker},
    {kTransparencyKind, kValuePickerSlot, makeValuePicker},
    {kLinetypeScaleKind, kValuePickerSlot, makeValuePicker},
    {kVisibilityKind, kValuePickerSlot, makeValuePicker},
    {kLockKind, kValuePickerSlot, makeValuePicker},
    {kFreezeKind, kValuePickerSlot, makeValuePicker},
    {kPlotKind, kValuePickerSlot, makeValuePicker},
};

}  // namespace

const ItemPicker* itemPicker(int kind) {
  const auto found = std::find_if(std::begin(kPickers), std::end(kPickers),
                                  [&](const ItemPicker& row) { return row.kind == kind; });
  return found == std::end(kPickers) ? nullptr : found;
}

}  // namespace kiv
