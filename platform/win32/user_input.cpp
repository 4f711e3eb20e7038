// A person's hands on real dialogs: windows, buttons, fields and keys.
#include "platform/user_input.h"

#include "platform/win32/combo_box.h"
#include "platform/win32/grid_window.h"
#include "platform/win32/hands.h"
#include "platform/win32/reach.h"
#include "platform/win32/window.h"

// Needs what windows.h declares.
#include <commctrl.h>

namespace kiv::user {
namespace {

using win32::Reach;

// Where a character that is typed into the control goes; null: nowhere.
HWND fieldOf(HWND control) {
  if (win32::isOfClass(control, WC_COMBOBOXW)) return win32::SystemComboBox::fieldOf(control);
  return win32::isOfClass(control, WC_EDITW) ? control : nullptr;
}

bool isReadOnly(HWND field) { return GetWindowLongPtrW(field, GWL_STYLE) & ES_READONLY; }

WPARAM virtualKeyOf(Key key) {
  switch (key) {
    case Key::kEnter:
      return VK_RETURN;
    case Key::kEscape:
      return VK_ESCAPE;
    case Key::kTab:
      return VK_TAB;
    case Key::kDelete:
      return VK_DELETE;
    case Key::kInsert:
      return VK_INSERT;
    case Key::kUp:
      return VK_UP;
    case Key::kDown:
      return VK_DOWN;
    case Key::kF2:
      return VK_F2;
    case Key::kF5:
      return VK_F5;
    case Key::kSelectAll:
      return 'A';
  }
  return 0;
}

RECT inside(HWND window) {
  RECT rect{};
  GetClientRect(window, &rect);
  return rect;
}

bool hasEntry(const Reach& reach, int entry) {
  return reach.isA(WC_COMBOBOXW) && entry >= 0 &&
         entry < static_cast<int>(SendMessageW(reach.control(), CB_GETCOUNT, 0, 0));
}

// Opens the list and returns the middle of the entry in the list's window.
POINT openEntry(HWND comboBox, int entry) {
  SendMessageW(comboBox, CB_SHOWDROPDOWN, TRUE, 0);
  win32::handleMessages();
  const HWND list = win32::SystemComboBox::listOf(comboBox);
  const auto at = static_cast<WPARAM>(entry);
  RECT rect{};
  SendMessageW(list, LB_GETITEMRECT, at, reinterpret_cast<LPARAM>(&rect));
  if (rect.bottom > inside(list).bottom || rect.top < 0) {
    SendMessageW(list, LB_SETTOPINDEX, at, 0);
    SendMessageW(list, LB_GETITEMRECT, at, reinterpret_cast<LPARAM>(&rect));
  }
  return win32::centreOf(rect);
}

// The list is closed by now: the second click meets whatever lies behind it.
void clickAgain(POINT screen) {
  const HWND window = WindowFromPoint(screen);
  if (!window || GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return;
  POINT place = screen;
  ScreenToClient(window, &place);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(place.x, place.y));
  win32::handleMessages();
}

}  // namespace

std::vector<DialogWindow*> shownDialogs() {
  std::vector<DialogWindow*> shown;
  for (win32::Window* window : win32::Window::all())
    if (window->isShown()) shown.push_back(window);
  return shown;
}

bool click(DialogWindow& window, int id) {
  const Reach reach(window, id);
  if (!reach.isA(WC_BUTTONW)) return false;
  reach.bringToFront();
  win32::clickAt(reach.control(), win32::centreOf(inside(reach.control())));
  return true;
}

bool type(DialogWindow& window, int id, std::wstring_view text) {
  const Reach reach(window, id);
  const HWND field = reach ? fieldOf(reach.control()) : nullptr;
  if (!field || isReadOnly(field)) return false;
  reach.bringToFront();
  reach.window().focus(id);
  win32::handleMessages();
  SendMessageW(field, EM_SETSEL, 0, -1);
  if (text.empty() && GetWindowTextLengthW(field) > 0) win32::pressKeyIn(field, VK_DELETE);
  win32::typeInto(field, text);
  return true;
}

bool chooseEntry(DialogWindow& window, int id, int entry) {
  const Reach reach(window, id);
  if (!hasEntry(reach, entry)) return false;
  reach.bringToFront();
  const POINT place = openEntry(reach.control(), entry);
  win32::clickAt(win32::SystemComboBox::listOf(reach.control()), place);
  return true;
}

bool doubleClickEntry(DialogWindow& window, int id, int entry) {
  const Reach reach(window, id);
  if (!hasEntry(reach, entry)) return false;
  reach.bringToFront();
  const POINT place = openEntry(reach.control(), entry);
  const HWND list = win32::SystemComboBox::listOf(reach.control());
  POINT screen = place;
  ClientToScreen(list, &screen);
  win32::clickAt(list, place);
  clickAgain(screen);
  return true;
}

bool press(DialogWindow& window, Key key, bool shift) {
  const Reach reach(window);
  if (!reach) return false;
  reach.bringToFront();
  const HWND focus = GetFocus();
  const win32::Held held = shift                    ? win32::Held::kShift
                           : key == Key::kSelectAll ? win32::Held::kControl
                                                    : win32::Held::kNothing;
  win32::pressKeyIn(win32::isWithin(reach.dialog(), focus) ? focus : reach.dialog(), virtualKeyOf(key), held);
  return true;
}

bool pressWithAlt(DialogWindow& window, wchar_t letter) {
  const Reach reach(window);
  if (!reach) return false;
  reach.bringToFront();
  const HWND focus = GetFocus();
  win32::pressWithAlt(win32::isWithin(reach.dialog(), focus) ? focus : reach.dialog(), letter);
  return true;
}

bool close(DialogWindow& window) {
  const Reach reach(window);
  const HWND cancel = GetDlgItem(reach.dialog(), IDCANCEL);
  if (!reach || (cancel && !IsWindowEnabled(cancel))) return false;
  reach.bringToFront();
  PostMessageW(reach.dialog(), WM_SYSCOMMAND, SC_CLOSE, 0);
  win32::handleMessages();
  return true;
}

void settle() { win32::handleMessages(); }

}  // namespace kiv::user
