#include "ui/select_base.h"

#include "ui/resource.h"

namespace kiv {

Rect& lastPickerPlace() {
  static Rect place;
  return place;
}

CSelBase::CSelBase(int resource, PickerOwner& owner, int slot, PickHandOver& pick, Rect& place)
    : Dialog(resource), owner_(owner), slot_(slot), pick_(pick), place_(place) {}

CSelBase::~CSelBase() {
  // Nobody would be there to take the values.
  if (hasRequestedPick_) pick_.end();
}

void CSelBase::onInit() {
  if (!place_.isEmpty()) window().moveTo({place_.left, place_.top});
  window().setPicture(IDC_PICK, IDI_PICK);
  window().enable(IDC_PICK, pickItem() != 0);
  initialising_ = false;
  owner_.ownerWindow().enableWindow(false);
  window().show(true);
  window().activate();
}

void CSelBase::onCommand(int command) {
  if (initialising_) return Dialog::onCommand(command);
  switch (command) {
    case IDOK:
      return confirm();
    case IDCANCEL:
      return close();
    case IDC_PICK:
      return requestPick(pickItem());
    default:
      return Dialog::onCommand(command);
  }
}

void CSelBase::requestPick(int item) {
  if (pick_.request != 0) return;
  pick_.begin(item);
  hasRequestedPick_ = true;
  owner_.ownerWindow().enableWindow(true);
  owner_.ownerWindow().show(false);
  window().show(false);
}

void CSelBase::pickCompleted() {
  hasRequestedPick_ = false;
  pick_.end();
  owner_.ownerWindow().show(true);
  owner_.ownerWindow().enableWindow(false);
  if (!hasWindow()) return;
  window().show(true);
  window().activate();
}

void CSelBase::close() {
  place_ = window().place();
  // Enabled before the picker goes, or the system would bring another window to the front.
  owner_.ownerWindow().enableWindow(true);
  owner_.ownerWindow().activate();
  destroy();
}

void CSelBase::onDestroyed() {
  owner_.ownerWindow().enableWindow(true);
  owner_.releasePicker(slot_);
}

}  // namespace kiv
