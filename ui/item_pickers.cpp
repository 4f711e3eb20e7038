#include "ui/item_pickers.h"

#include <span>

#include "spec/item_kinds.h"
#include "ui/arrow_loader.h"
#include "ui/dimension_editor.h"
#include "ui/font_loader.h"
#include "ui/layer_picker.h"
#include "ui/linetype_loader.h"
#include "ui/value_picker.h"

namespace kiv {
namespace {

using MakePicker = std::unique_ptr<CSelBase> (*)(PickerOwner& owner, PickHandOver& pick,
                                                 const PickerRequest& request);

template <class Picker>
std::unique_ptr<CSelBase> make(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request) {
  return std::make_unique<Picker>(owner, pick, request);
}

struct PickerOfKind {
  int kind;
  MakePicker make;
};

// Kinds with a picker of their own, each a row. Other items are plain values.
std::span<const PickerOfKind> ownPickers() {
  static const PickerOfKind pickers[] = {
      {section(kDimensionSettingSection).entryKind, &make<CSelDim>},
      {section(kLayerCreationSection).entryKind, &make<CSelLay>},
      {section(kLinetypeSection).entryKind, &make<CSelLine>},
      {section(kFontSection).entryKind, &make<CSelFont>},
      {section(kArrowSection).entryKind, &make<CSelArw>},
      {kVariableKind, &make<CSelDim>},
  };
  return pickers;
}

MakePicker pickerOf(int kind) {
  for (const PickerOfKind& own : ownPickers())
    if (own.kind == kind) return own.make;
  return itemKind(kind) != nullptr ? &make<CSelDlg> : nullptr;
}

}  // namespace

std::unique_ptr<CSelBase> makePicker(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request) {
  const MakePicker maker = pickerOf(request.present.kind);
  return maker == nullptr ? nullptr : maker(owner, pick, request);
}

}  // namespace kiv
