#include "ui/select_base.h"

#include <algorithm>
#include <array>

#include "platform/screen_scale.h"
#include "ui/resource.h"

namespace kiv {

Rect& lastPickerPlace(PickerSlot slot) {
  static std::array<Rect, static_cast<size_t>(PickerSlot::kCount)> places;
  return places[static_cast<size_t>(slot)];
}

int columnsWidth(DialogWindow& window, int list) {
  constexpr int kFrameAndBar = 24;  // at 96 DPI
  const Rect place = window.placeOf(list);
  return place.right - place.left - scaled(kFrameAndBar);
}

void addEntries(ComboBox& combo, const std::vector<std::wstring>& entries) {
  for (const std::wstring& entry : entries) combo.add(entry);
}

void chooseOrType(DialogWindow& window, int combo, const std::wstring& text) {
  const std::vector<std::wstring> entries = window.combo(combo).entries();
  const auto found = std::find(entries.begin(), entries.end(), text);
  if (found != entries.end()) {
    window.combo(combo).select(static_cast<int>(found - entries.begin()));
  } else {
    window.setText(combo, text);
  }
}

void showCompleted(DialogWindow& window, int combo, const std::wstring& completed) {
  if (completed == window.text(combo)) return;
  window.setText(combo, completed);
  window.combo(combo).putCaretAtEnd();
}

CSelBase::CSelBase(int resource, PickerSlot slot, PickerOwner& owner, PickHandOver& pick)
    : Dialog(resource), slot_(slot), owner_(owner), pick_(pick) {}

CSelBase::~CSelBase() {
  // Nobody would be there to take the values.
  if (hasRequestedPick_) pick_.end();
}

void CSelBase::onInit() {
  const Rect& place = lastPickerPlace(slot_);
  if (!place.isEmpty()) window().moveTo({place.left, place.top});
  if (!window().placeOf(IDC_PICK).isEmpty()) {
    window().setPicture(IDC_PICK, IDI_PICK);
    window().enable(IDC_PICK, pickItem() != 0);
  }
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
      return askForPick();
    default:
      return Dialog::onCommand(command);
  }
}

void CSelBase::requestPick(int item, std::wstring variable) {
  if (pick_.request != 0) return;
  pick_.begin(item, std::move(variable));
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
  lastPickerPlace(slot_) = window().place();
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
