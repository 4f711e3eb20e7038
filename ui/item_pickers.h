#pragma once
// Which picker supplies the value of an item kind or the entries of a list section.

#include <memory>

#include "ui/select_base.h"

namespace kiv {

// False: what has no picker cannot be added or edited, and is greyed in the menus. `kind` is 1 to 16 of an
// item, 51 to 55 of a list entry.
bool hasPicker(int kind);

// Without a window yet; null when the kind has no picker.
std::unique_ptr<CSelBase> makePicker(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request);

}  // namespace kiv
