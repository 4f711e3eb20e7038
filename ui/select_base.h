#pragma once
// What all pickers share: the owner, the slot they occupy there, the place they open at, and taking a value
// from the drawing. A picker is made by the main dialog, lives in its slot, and goes when it is confirmed or
// cancelled. While it is open its owner takes no input.
//
//   slot = makePicker(*this, pick, {section, kind, role, present, folder});
//   slot->create(hostFrame);

#include <string>
#include <vector>

#include "platform/dialog.h"
#include "ui/tree_nodes.h"

namespace kiv {

// The picker slots of the main dialog. An occupied slot takes no second picker.
inline constexpr int kPickerSlots = 6;
inline constexpr int kValuePickerSlot = 0;

// What a picker needs of the dialog that opened it. Outlives its pickers.
class PickerOwner {
 public:
  virtual ~PickerOwner() = default;
  virtual DialogWindow& ownerWindow() = 0;
  virtual void setValue(int kind, Role role, const std::wstring& value) = 0;
  // Names that the specification already uses: the first value of each entry of a list section, in order.
  virtual std::vector<std::wstring> namesInSection(int section) const = 0;
  // The slot is empty from now on, and the picker deleted. Called by the picker as the last thing it does.
  virtual void releasePicker(int slot) = 0;
};

// What a picker is opened for.
struct PickerRequest {
  int section = 0;                    // under which the value will stand
  int kind = 0;                       // 1 to 16 of an item, 51 to 55 of a list entry
  Role role = Role::kNone;            // of that item or entry
  std::vector<std::wstring> present;  // the fields of what is edited; none: something new
  std::wstring listFolder;            // of the text search lists, with its trailing separator
};

// The pick from the drawing under way, shared by the pickers and the interactive command.
struct PickHandOver {
  int request = 0;  // 0 none; else what is picked, 1 to 16
  std::vector<std::wstring> values;

  void begin(int item) {
    request = item;
    values.clear();
  }
  void end() { begin(0); }
};

// Where the last picker stood when it was closed; the next one opens with its corner there unless this is
// empty. One for the process, save for pickers that keep their own.
Rect& lastPickerPlace();

class CSelBase : public Dialog {
 public:
  // `place` as lastPickerPlace(), for pickers that keep their own. All must outlive the picker.
  CSelBase(int resource, PickerOwner& owner, int slot, PickHandOver& pick, Rect& place = lastPickerPlace());
  // Destroying an open picker takes its window and its pending pick away and leaves the owner alone.
  ~CSelBase() override;

  int slot() const { return slot_; }
  // To be called when the pick that was asked for has ended, with values or without: takes over the values,
  // empties the hand-over, and shows the owner and this picker again. Overrides take over the values first.
  virtual void pickCompleted();

 protected:
  // Last thing in a derived onInit(): places and shows the window, and takes the owner's input.
  void onInit() override;
  // OK is confirm(), cancel closes, IDC_PICK asks for a pick of pickItem().
  void onCommand(int command) override;
  void onDestroyed() override;

  // OK: hands the value over and calls close(), or stays open.
  virtual void confirm() = 0;
  // What the pick button picks, 1 to 16; 0: no entity has such a value, and the button is grey.
  virtual int pickItem() const = 0;

  // Hides owner and picker and asks the command for a pick; nothing while one is under way.
  void requestPick(int item);
  // Remembers the place and goes. Nothing of this object may be touched after the call.
  void close();

  PickerOwner& owner() { return owner_; }
  PickHandOver& pick() { return pick_; }
  bool initialising() const { return initialising_; }

 private:
  PickerOwner& owner_;
  int slot_;
  PickHandOver& pick_;
  Rect& place_;
  bool initialising_ = true;
  bool hasRequestedPick_ = false;
};

}  // namespace kiv
