#include "platform/win32/window.h"

// Needs what windows.h declares.
#include <commctrl.h>

#include "platform/win32/combo_box.h"
#include "platform/win32/control_keys.h"
#include "platform/win32/grid.h"
#include "platform/win32/lineweight_combo_box.h"
#include "platform/win32/lineweight_list.h"
#include "platform/win32/list_view.h"
#include "platform/win32/messages.h"
#include "platform/win32/picture_button.h"
#include "platform/win32/picture_label.h"
#include "platform/win32/tree_view.h"

namespace kiv::win32 {
namespace {

bool isRadioButton(HWND control) {
  const auto kind = GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK;
  return isOfClass(control, WC_BUTTONW) && (kind == BS_AUTORADIOBUTTON || kind == BS_RADIOBUTTON);
}

bool beginsGroup(HWND control) { return GetWindowLongPtrW(control, GWL_STYLE) & WS_GROUP; }

void setMark(HWND control, bool checked) {
  SendMessageW(control, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void takeMarkFromGroup(HWND radio) {
  HWND first = radio;
  while (!beginsGroup(first)) {
    const HWND before = GetWindow(first, GW_HWNDPREV);
    if (!before) break;
    first = before;
  }
  for (HWND member = first; member; member = GetWindow(member, GW_HWNDNEXT)) {
    if (member != first && beginsGroup(member)) break;
    if (member != radio && isRadioButton(member)) setMark(member, false);
  }
}

}  // namespace

std::wstring Window::title() const { return windowText(window_); }

void Window::setTitle(std::wstring_view title) { SetWindowTextW(window_, terminated(title).c_str()); }

void Window::show(bool shown) {
  ShowWindow(window_, shown ? SW_SHOW : SW_HIDE);
  if (shown) giveKeyboard();
}

bool Window::isShown() const { return IsWindowVisible(window_); }

void Window::enableWindow(bool enabled) { EnableWindow(window_, enabled); }

bool Window::isWindowEnabled() const { return IsWindowEnabled(window_); }

void Window::activate() {
  SetForegroundWindow(window_);
  SetActiveWindow(window_);
  giveKeyboard();
}

Rect Window::place() const {
  RECT rect{};
  GetWindowRect(window_, &rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

void Window::setPlace(const Rect& place) {
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::moveTo(Place topLeft) {
  SetWindowPos(window_, nullptr, topLeft.x, topLeft.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Window::setTimer(int milliseconds) {
  if (milliseconds > 0) {
    SetTimer(window_, kDialogTimer, static_cast<UINT>(milliseconds), nullptr);
  } else {
    KillTimer(window_, kDialogTimer);
  }
}

void Window::post(int command) { PostMessageW(window_, kRunCommand, static_cast<WPARAM>(command), 0); }

Rect Window::placeOf(int id) const {
  RECT rect{};
  if (const HWND handle = control(id)) GetWindowRect(handle, &rect);
  return {rect.left, rect.top, rect.right, rect.bottom};
}

Place Window::menuPlace(int id) const {
  const HWND handle = control(id);
  const POINT place = handle ? placeUnderChosenRow(handle) : POINT{};
  return {static_cast<int>(place.x), static_cast<int>(place.y)};
}

std::wstring Window::text(int id) const {
  const HWND handle = control(id);
  if (!handle) return {};
  const auto known = controls_.find(id);
  const Control* object = known == controls_.end() ? nullptr : known->second.get();
  if (const auto* weights = dynamic_cast<const LineweightComboBox*>(object)) return weights->text();
  return windowText(handle);
}

void Window::setText(int id, std::wstring_view text) {
  const HWND handle = control(id);
  if (!handle) return;
  const Quiet silence(quiet_);
  if (isOfClass(handle, WC_COMBOBOXW)) SendMessageW(handle, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
  SetWindowTextW(handle, terminated(text).c_str());
}

bool Window::isEnabled(int id) const {
  const HWND handle = control(id);
  return handle && IsWindowEnabled(handle);
}

void Window::enable(int id, bool enabled) {
  const HWND handle = control(id);
  if (!handle) return;
  if (!enabled) leaveControl(handle);
  EnableWindow(handle, enabled);
}

bool Window::isVisible(int id) const {
  const HWND handle = control(id);
  return handle && (GetWindowLongPtrW(handle, GWL_STYLE) & WS_VISIBLE);
}

void Window::showControl(int id, bool visible) {
  const HWND handle = control(id);
  if (!handle) return;
  if (!visible) leaveControl(handle);
  ShowWindow(handle, visible ? SW_SHOWNA : SW_HIDE);
}

// The keyboard's focus must not stay in a control that cannot use it: no key would do anything any more.
void Window::leaveControl(HWND handle) {
  if (isWithin(handle, GetFocus())) SendMessageW(window_, WM_NEXTDLGCTL, FALSE, FALSE);
  if (isWithin(handle, focusWhenActive_)) focusWhenActive_ = nullptr;
}

void Window::focus(int id) {
  const HWND handle = control(id);
  if (!handle || !IsWindowEnabled(handle)) return;
  focusWhenActive_ = handle;
  if (isShown() && GetActiveWindow() == window_) takeKeyboardTo(handle);
}

// The click gives the button the keyboard, too. The window may have gone afterwards.
void Window::reach(int id) {
  const HWND handle = control(id);
  if (!handle || !IsWindowEnabled(handle) || !IsWindowVisible(handle)) return;
  if (isOfClass(handle, WC_BUTTONW)) {
    SendMessageW(handle, BM_CLICK, 0, 0);
  } else {
    focus(id);
  }
}

// To the control that had the keyboard when the window was active last; at first to the first one.
void Window::giveKeyboard() {
  if (IsChild(window_, GetFocus())) return;
  const HWND wanted = focusWhenActive_;
  const bool usable = wanted && IsWindowEnabled(wanted) && IsWindowVisible(wanted);
  const HWND target = usable ? wanted : GetNextDlgTabItem(window_, nullptr, FALSE);
  if (target) takeKeyboardTo(target);
}

void Window::takeKeyboardTo(HWND handle) {
  const Quiet silence(quiet_);  // a tree takes its first row as chosen when it gets the keyboard
  SendMessageW(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(handle), TRUE);
}

void Window::rememberFocus() {
  const HWND at = GetFocus();
  if (IsChild(window_, at)) focusWhenActive_ = at;
}

int Window::focused() const {
  HWND at = GetFocus();
  if (!IsChild(window_, at)) at = focusWhenActive_;
  while (at && GetParent(at) != window_) at = GetParent(at);  // out of a combo box's field
  return at ? GetDlgCtrlID(at) : 0;
}

bool Window::isChecked(int id) const { return SendMessageW(control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }

void Window::check(int id, bool checked) {
  const HWND handle = control(id);
  if (!handle) return;
  if (checked && isRadioButton(handle)) takeMarkFromGroup(handle);
  setMark(handle, checked);
}

HWND Window::controlOfClass(int id, const wchar_t* windowClass) const {
  const HWND handle = control(id);
  return handle && isOfClass(handle, windowClass) ? handle : nullptr;
}

template <class Adapter>
Adapter& Window::adapter(int id, const wchar_t* windowClass) {
  auto known = controls_.find(id);
  if (known != controls_.end()) {
    if (auto* fitting = dynamic_cast<Adapter*>(known->second.get())) return *fitting;
    // Asked for as something that it is not: an object of its own, without a control.
    static int never = 0;
    static Adapter none(nullptr, never);
    return none;
  }
  auto made = std::make_unique<Adapter>(controlOfClass(id, windowClass), quiet_);
  Adapter& answer = *made;
  controls_.emplace(id, std::move(made));
  return answer;
}

LineweightComboBox* Window::lineweights(int id) {
  const HWND comboBox = controlOfClass(id, WC_COMBOBOXW);
  if (!comboBox || !isLineweightList(comboBox)) return nullptr;
  return &adapter<LineweightComboBox>(id, WC_COMBOBOXW);
}

ComboBox& Window::combo(int id) {
  if (LineweightComboBox* weights = lineweights(id)) return *weights;
  return adapter<SystemComboBox>(id, WC_COMBOBOXW);
}
TreeView& Window::tree(int id) { return adapter<SystemTreeView>(id, WC_TREEVIEWW); }
ListView& Window::list(int id) { return adapter<SystemListView>(id, WC_LISTVIEWW); }
TextGrid& Window::grid(int id) { return adapter<Grid>(id, kGridClass); }

void Window::draw(const DRAWITEMSTRUCT& item) {
  if (LineweightComboBox* weights = lineweights(static_cast<int>(item.CtlID))) return weights->draw(item);
  adapter<PictureButton>(static_cast<int>(item.CtlID), WC_BUTTONW).draw(item);
}

void Window::setPicture(int id, int resource) {
  if (controlOfClass(id, WC_STATICW)) {
    adapter<PictureLabel>(id, WC_STATICW).setBitmap(resource);
  } else {
    adapter<PictureButton>(id, WC_BUTTONW).setIcon(resource);
  }
}

}  // namespace kiv::win32
