#pragma once
// Which picker supplies the items of a kind or the entries of a list section.

#include <memory>

#include "ui/select_base.h"

namespace kiv {

// For request.present.kind, without a window yet; null for a kind that is none.
std::unique_ptr<CSelBase> makePicker(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request);

}  // namespace kiv
