#pragma once
// What all pickers share: the owner, the slot they occupy there, the place they open at, and taking values
// from the drawing. A picker is made by the main dialog, lives in its slot, and goes when it is confirmed or
// cancelled. While it is open its owner takes no input.
//
//   slot = makePicker(*this, pick, {section, present, folder});
//   slot->create(hostFrame);

#include <string>
#include <utility>
#include <vector>

#include "platform/dialog.h"
#include "ui/node_content.h"

namespace kiv {

// The main dialog has a slot for each picker; an occupied one takes no second picker.
enum class PickerSlot { kValue, kLayer, kLinetype, kFont, kDimension, kArrow, kCount };

// What a picker needs of the dialog that opened it. Outlives its pickers.
class PickerOwner {
 public:
  virtual ~PickerOwner() = default;
  virtual DialogWindow& ownerWindow() = 0;
  // What was confirmed: of the kind and role that the picker was opened for, with all its fields. False: the
  // specification cannot hold it, the person has been told why, and the picker stays open.
  virtual bool take(const NodeContent& content) = 0;
  // Names that the specification already uses: the first value of each entry of a list section, in order.
  virtual std::vector<std::wstring> namesInSection(int section) const = 0;
  // The slot is empty from now on. The picker, which calls this as the last thing that it does with its
  // window, lives until the next one goes.
  virtual void releasePicker(PickerSlot slot) = 0;
};

// What a picker is opened for.
struct PickerRequest {
  int section = 0;          // under which the content will stand
  NodeContent present;      // what is edited; without fields: something new of this kind and role
  std::wstring listFolder;  // of the text search lists, with its trailing separator
};

// The pick from the drawing under way, shared by the pickers and the interactive command.
struct PickHandOver {
  int request = 0;                   // 0 none; else what is picked, a PickItem
  std::wstring variable;             // the dimension variable whose value is picked, where it is one
  std::vector<std::wstring> values;  // what was picked, in the forms that PickItem tells

  void begin(int item, std::wstring ofVariable = {}) {
    request = item;
    variable = std::move(ofVariable);
    values.clear();
  }
  void end() { begin(0); }
};

// Where the last picker of the slot stood when it was closed; the next one opens with its corner there unless
// this is empty. Kept as long as the process lives.
Rect& lastPickerPlace(PickerSlot slot);

void addEntries(ComboBox& combo, const std::vector<std::wstring>& entries);

// Selects the entry of a combo box that equals the text exactly, else puts the text into its field.
void chooseOrType(DialogWindow& window, int combo, const std::wstring& text);

// Puts what the typed text has become into the field, the caret behind it; nothing when it is as it was
// typed.
void showCompleted(DialogWindow& window, int combo, const std::wstring& completed);

// The width that the columns of a list may have: without its frame and its scroll bar.
int columnsWidth(DialogWindow& window, int list);

class CSelBase : public Dialog {
 public:
  // Owner and hand-over must outlive the picker.
  CSelBase(int resource, PickerSlot slot, PickerOwner& owner, PickHandOver& pick);
  // Destroying an open picker takes its window and its pending pick away and leaves the owner alone.
  ~CSelBase() override;

  PickerSlot slot() const { return slot_; }
  // To be called when the pick that was asked for has ended, with values or without: takes over the values,
  // empties the hand-over, and shows the owner and this picker again. Overrides take over the values first.
  virtual void pickCompleted();

 protected:
  // Last thing in a derived onInit(): places and shows the window, and takes the owner's input.
  void onInit() override;
  // OK is confirm(), cancel closes, IDC_PICK asks for a pick.
  void onCommand(int command) override;
  void onDestroyed() override;

  // OK: hands the content over and calls close(), or stays open.
  virtual void confirm() = 0;
  // What the pick button picks, a PickItem; 0: no entity has such a value, and the button is grey or not
  // there.
  virtual int pickItem() const = 0;
  // The pick button: requestPick() of pickItem(), unless something has to be chosen first.
  virtual void askForPick() { requestPick(pickItem()); }

  // Hides owner and picker and asks the command for a pick, which looks here when its wait for input returns:
  // a host lets it return after any input to a window of the module. Nothing while a pick is under way.
  void requestPick(int item, std::wstring variable = {});
  // Remembers the place and goes. Nothing of this object may be touched after the call.
  void close();

  PickerOwner& owner() { return owner_; }
  PickHandOver& pick() { return pick_; }
  bool initialising() const { return initialising_; }

 private:
  PickerSlot slot_;
  PickerOwner& owner_;
  PickHandOver& pick_;
  bool initialising_ = true;
  bool hasRequestedPick_ = false;
};

}  // namespace kiv
