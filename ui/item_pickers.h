#pragma once
// Which picker supplies the items of a kind or the entries of a list section.

#include <memory>

#include "ui/select_base.h"

namespace kiv {

// For request.present.kind, without a window yet; null for a kind that is none.
std::unique_ptr<CSelBase> makePicker(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request);

// For tests: a picker for a kind, instead of the one that it has; null: what it has again.
using MakePicker = std::unique_ptr<CSelBase> (*)(PickerOwner& owner, PickHandOver& pick,
                                                 const PickerRequest& request);
void overridePicker(int kind, MakePicker make);

}  // namespace kiv
