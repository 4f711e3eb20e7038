#pragma once
// What all pickers share: the owner, the slot they occupy there, the place they open at, and taking a value
// from the drawing. A picker is made by the main dialog, lives in its slot, and goes when it is confirmed or
// cancelled.

#include <string>
#include <vector>

#include "platform/dialog.h"

namespace kiv {

class CSelBase;

// The picker slots of the main dialog. An occupied slot takes no second picker.
inline constexpr int kPickerSlots = 6;
inline constexpr int kValuePickerSlot = 0;
inline constexpr int kFontPickerSlot = 3;

// What a picker needs of the dialog that opened it.
class PickerOwner {
 public:
  virtual ~PickerOwner() = default;
  virtual DialogWindow& ownerWindow() = 0;
  // The value of a condition (side 1) or a result (any other side) of that kind is `value`.
  virtual void setValue(int kind, int side, const std::wstring& value) = 0;
  // Names that the specification already uses: the first value of each entry of a list section, in order.
  virtual std::vector<std::wstring> namesInSection(int section) const = 0;
  // The slot is empty from now on, and the picker deleted.
  virtual void releasePicker(int slot) = 0;
};

// The pick from the drawing under way, shared by the pickers and the interactive command.
struct PickHandOver {
  int request = 0;  // 0 none; else what is picked, 1 to 16
  std::vector<std::wstring> values;
  std::wstring file;
};

class CSelBase : public Dialog {
 public:
  CSelBase(int resource, PickerOwner& owner, int slot, PickHandOver& pick);

  int slot() const { return slot_; }
  // The interactive command has picked: takes over the values, then shows the owner and this picker again.
  virtual void pickCompleted();

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onDestroyed() override;

  // Hides owner and picker and asks the command for a pick; nothing while one is under way.
  void requestPick(int item);
  PickerOwner& owner() { return owner_; }
  PickHandOver& pick() { return pick_; }
  bool initialising() const { return initialising_; }

  std::wstring result_;

 private:
  PickerOwner& owner_;
  int slot_;
  PickHandOver& pick_;
  bool initialising_ = true;
};

}  // namespace kiv
