#include "ui/item_pickers.h"

#include "spec/item_kinds.h"
#include "ui/value_picker.h"

namespace kiv {

// Dimension variables and the entries of the list sections have none yet.
bool hasPicker(int kind) { return itemKind(kind) != nullptr && kind != kVariableKind; }

std::unique_ptr<CSelBase> makePicker(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request) {
  return hasPicker(request.kind) ? std::make_unique<CSelDlg>(owner, pick, request) : nullptr;
}

}  // namespace kiv
