#pragma once
// Which picker supplies the value of an item kind or the entries of a list section. What has no picker
// cannot be added or edited, and is greyed in the menus.

#include <memory>
#include <string>
#include <vector>

#include "ui/select_base.h"

namespace kiv {

struct PickerRequest {
  int section = 0;                    // under which the value will stand
  int kind = 0;                       // 1 to 16 of an item, 51 to 55 of a list entry
  int side = 0;                       // 1 condition, 2 result, 3 list entry
  std::vector<std::wstring> present;  // the fields of what is edited; none: something new
  std::wstring listFolder;            // of the text search lists, with its trailing separator
};

struct ItemPicker {
  int kind;
  int slot;
  std::unique_ptr<CSelBase> (*make)(PickerOwner& owner, PickHandOver& pick, const PickerRequest& request);
};

// Null: the kind has no picker.
const ItemPicker* itemPicker(int kind);

}  // namespace kiv
