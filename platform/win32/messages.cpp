#include "platform/win32/messages.h"

// Needs what windows.h declares.
#include <commctrl.h>

#include "platform/host_output.h"
#include "platform/win32/combo_box.h"
#include "platform/win32/grid.h"
#include "platform/win32/lineweight_combo_box.h"
#include "platform/win32/window.h"

namespace kiv::win32 {
namespace {

// The host asks a modeless window whether it wants to keep the keyboard; otherwise the drawing takes it
// back as soon as the pointer is over it.
constexpr UINT kKeepFocus = 0x6D01;

constexpr int kCancelCommand = 2;

INT_PTR answer(HWND dialog, LONG_PTR result) {
  SetWindowLongPtrW(dialog, DWLP_MSGRESULT, result);
  return TRUE;
}

bool wantsToKeepFocus(HWND dialog) {
  if (!IsWindowVisible(dialog) || !IsWindowEnabled(dialog)) return false;
  POINT pointer{};
  RECT place{};
  return isWithin(dialog, GetFocus()) ||
         (GetCursorPos(&pointer) && GetWindowRect(dialog, &place) && PtInRect(&place, pointer));
}

void tellCombo(Window& window, HWND comboBox, int id, WORD code) {
  switch (code) {
    case CBN_EDITCHANGE:
      window.tell([id](Dialog& dialog) { dialog.onEdited(id); });
      break;
    case CBN_SELCHANGE:
      // The field follows only after this message; whoever is told now reads it, though. A list of
      // lineweights has none.
      if (!window.lineweights(id)) window.combo(id).select(window.combo(id).selected());
      window.tell([id](Dialog& dialog) { dialog.onSelected(id); });
      break;
    case CBN_SELENDOK:
      if (GetKeyState(VK_RETURN) >= 0) awaitSecondClick(comboBox);
      break;
    case CBN_DBLCLK:
      window.tell([id](Dialog& dialog) { dialog.onDoubleClicked(id); });
      break;
    default:
      break;
  }
}

void takeCommand(Window& window, WPARAM first, HWND control) {
  const int id = LOWORD(first);
  const WORD code = HIWORD(first);
  if (LineweightComboBox* weights = control ? window.lineweights(id) : nullptr) weights->takeNotice(first);
  if (window.isQuiet()) return;
  const auto command = [id](Dialog& dialog) { dialog.onCommand(id); };
  if (!control && code == AccessKeys::kCode) {
    window.reach(id);
  } else if (!control) {
    window.tell(command);  // a menu, or a key that stands for a button
  } else if (isOfClass(control, WC_COMBOBOXW)) {
    tellCombo(window, control, id, code);
  } else if (isOfClass(control, WC_EDITW)) {
    if (code == EN_CHANGE) window.tell([id](Dialog& dialog) { dialog.onEdited(id); });
  } else if (isOfClass(control, WC_BUTTONW)) {
    // Enter presses the default button even where it is disabled.
    const bool pressed = code == BN_CLICKED || code == BN_DBLCLK;
    if (pressed && IsWindowEnabled(control)) window.tell(command);
  }
}

void takeListNotice(Window& window, const NMHDR& notice, int id) {
  if (notice.code == LVN_ITEMCHANGED) {
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notice);
    const bool isSelected = change.uNewState & LVIS_SELECTED, wasSelected = change.uOldState & LVIS_SELECTED;
    const bool several = !(GetWindowLongPtrW(notice.hwndFrom, GWL_STYLE) & LVS_SINGLESEL);
    if (isSelected != wasSelected && (isSelected || several))
      window.tell([id](Dialog& dialog) { dialog.onSelected(id); });
  } else if (notice.code == LVN_COLUMNCLICK) {
    const int column = reinterpret_cast<const NMLISTVIEW&>(notice).iSubItem;
    window.tell([id, column](Dialog& dialog) { dialog.onHeaderClicked(id, column); });
  } else if (notice.code == NM_DBLCLK) {
    if (reinterpret_cast<const NMITEMACTIVATE&>(notice).iItem < 0) return;
    window.tell([id](Dialog& dialog) { dialog.onDoubleClicked(id); });
  }
}

void takeNotice(Window& window, const NMHDR& notice) {
  const int id = static_cast<int>(notice.idFrom);
  if (window.isQuiet()) return;
  if (isOfClass(notice.hwndFrom, WC_LISTVIEWW)) {
    takeListNotice(window, notice, id);
  } else if (notice.code == TVN_SELCHANGEDW || notice.code == kGridRowChosen) {
    window.tell([id](Dialog& dialog) { dialog.onSelected(id); });
  } else if (notice.code == TVN_ITEMEXPANDINGW) {
    const auto& opening = reinterpret_cast<const NMTREEVIEWW&>(notice);
    const auto item = reinterpret_cast<TreeItem>(opening.itemNew.hItem);
    if (opening.action == TVE_EXPAND) window.tell([=](Dialog& dialog) { dialog.onOpening(id, item); });
  }
}

// The closing box stands for the cancel button, where there is one.
void takeClosing(Window& window) {
  if (GetDlgItem(window.handle(), kCancelCommand) && !window.isEnabled(kCancelCommand)) return;
  window.tell([](Dialog& dialog) { dialog.onCommand(kCancelCommand); });
}

void takeActivation(Window& window, WPARAM state) {
  if (LOWORD(state) == WA_INACTIVE) {
    window.accessKeys().hideHints();
    window.rememberFocus();
  } else if (HIWORD(state) == 0) {  // not as an icon
    window.giveKeyboard();
  }
}

INT_PTR takeMessage(Window& window, UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_COMMAND:
      takeCommand(window, first, reinterpret_cast<HWND>(second));
      return TRUE;
    case kRunCommand:
      window.tell([first](Dialog& dialog) { dialog.onCommand(static_cast<int>(first)); });
      return TRUE;
    case WM_CLOSE:
      takeClosing(window);
      return TRUE;
    case WM_NOTIFY:
      takeNotice(window, *reinterpret_cast<const NMHDR*>(second));
      return FALSE;
    case WM_TIMER:
      if (first != kDialogTimer) return FALSE;
      window.tell([](Dialog& dialog) { dialog.onTimer(); });
      return TRUE;
    case WM_SIZE:
      window.takeSize();
      return FALSE;
    case WM_GETMINMAXINFO:
      window.limitSize(*reinterpret_cast<MINMAXINFO*>(second));
      return TRUE;
    case WM_DRAWITEM:
      window.draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
      return TRUE;
    case WM_ACTIVATE:
      takeActivation(window, first);
      return TRUE;
    case WM_SETFOCUS:
      window.giveKeyboard();
      return TRUE;
    case WM_CANCELMODE:  // before it is disabled, when no control of it keeps the keyboard
      window.rememberFocus();
      return FALSE;
    case kKeepFocus:
      return answer(window.handle(), wantsToKeepFocus(window.handle()));
    case WM_DESTROY:
      window.windowVanishes();
      return TRUE;
    default:
      return FALSE;
  }
}

}  // namespace

INT_PTR CALLBACK dialogProcedure(HWND handle, UINT message, WPARAM first, LPARAM second) {
  if (message == kGoNow) {
    DestroyWindow(handle);
    return TRUE;
  }
  Window* window = Window::of(handle);
  if (!window) return FALSE;
  return guarded(INT_PTR{TRUE}, [&] { return takeMessage(*window, message, first, second); });
}

}  // namespace kiv::win32
