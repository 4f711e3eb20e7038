#include "platform/win32/control_keys.h"

// Need what windows.h declares.
#include <commctrl.h>
#include <windowsx.h>

#include <cstring>
#include <optional>

#include "platform/host_output.h"
#include "platform/win32/grid.h"
#include "platform/win32/window.h"

namespace kiv::win32 {
namespace {

constexpr UINT_PTR kWatcher = 1;

std::optional<Key> keyOf(WPARAM virtualKey) {
  switch (virtualKey) {
    case VK_RETURN:
      return Key::kEnter;
    case VK_ESCAPE:
      return Key::kEscape;
    case VK_TAB:
      return Key::kTab;
    case VK_DELETE:
      return Key::kDelete;
    case VK_INSERT:
      return Key::kInsert;
    case VK_UP:
      return Key::kUp;
    case VK_DOWN:
      return Key::kDown;
    case VK_F2:
      return Key::kF2;
    case 'A':
      return GetKeyState(VK_CONTROL) < 0 ? std::optional(Key::kSelectAll) : std::nullopt;
    default:
      return std::nullopt;
  }
}

bool isDialogKey(Key key) { return key == Key::kEnter || key == Key::kEscape || key == Key::kTab; }

void press(HWND dialog, int command) {
  const HWND button = GetDlgItem(dialog, command);
  SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(command, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

bool chooseTreeItemUnder(HWND tree, POINT place) {
  TVHITTESTINFO hit{};
  hit.pt = place;
  if (!SendMessageW(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) return false;
  SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(hit.hItem));
  return true;
}

bool chooseListRowUnder(HWND list, POINT place) {
  LVHITTESTINFO hit{};
  hit.pt = place;
  if (SendMessageW(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0) return false;
  LVITEMW item{};
  item.stateMask = item.state = LVIS_SELECTED | LVIS_FOCUSED;
  SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(hit.iItem), reinterpret_cast<LPARAM>(&item));
  return true;
}

// The row under the pointer becomes the chosen one, as at a click with the left button. False where the
// pointer is on nothing that a menu could be about; a grid can gain rows wherever it is.
bool chooseUnder(HWND control, POINT place) {
  if (isOfClass(control, WC_TREEVIEWW)) return chooseTreeItemUnder(control, place);
  if (isOfClass(control, WC_LISTVIEWW)) return chooseListRowUnder(control, place);
  SendMessageW(control, kGridChooseAt, 0, MAKELPARAM(place.x, place.y));
  return true;
}

RECT rectOfChosenRow(HWND control) {
  RECT row{};
  if (isOfClass(control, WC_TREEVIEWW)) {
    const LRESULT caret = SendMessageW(control, TVM_GETNEXTITEM, TVGN_CARET, 0);
    std::memcpy(&row, &caret, sizeof caret);
    if (!caret || !SendMessageW(control, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&row))) row = {};
  } else if (isOfClass(control, WC_LISTVIEWW)) {
    const LRESULT chosen = SendMessageW(control, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    row.left = LVIR_LABEL;
    const auto at = static_cast<WPARAM>(chosen);
    if (chosen < 0 || !SendMessageW(control, LVM_GETITEMRECT, at, reinterpret_cast<LPARAM>(&row))) row = {};
  } else {
    SendMessageW(control, kGridRowRect, 0, reinterpret_cast<LPARAM>(&row));
  }
  return row;
}

// `place` is one of the screen.
void openMenu(Window& window, HWND control, POINT place) {
  const int id = GetDlgCtrlID(control);
  window.tell([id, place](Dialog& dialog) {
    dialog.onContextMenu(id, {static_cast<int>(place.x), static_cast<int>(place.y)});
  });
}

bool takesKey(Window& window, HWND control, Key key) {
  const int id = GetDlgCtrlID(control);
  bool taken = false;
  const bool alive = window.tell([&](Dialog& dialog) { taken = dialog.onKey(id, key); });
  return taken || !alive;
}

bool takeKeyDown(Window& window, HWND control, WPARAM virtualKey) {
  const std::optional<Key> key = keyOf(virtualKey);
  if (!key) return false;
  if (takesKey(window, control, *key)) return true;
  // A grid commits and cancels what is being typed before the dialog uses the key.
  if (isOfClass(control, kGridClass) && !DefSubclassProc(control, WM_KEYDOWN, virtualKey, 0)) return true;
  if (!isDialogKey(*key)) return false;
  useAsDialogKey(window.handle(), *key);
  return true;
}

// The window manager shall not take the keys of the dialog before it has been asked for them.
bool isForDialog(LPARAM data) {
  const auto* message = reinterpret_cast<const MSG*>(data);
  if (!message || message->message != WM_KEYDOWN) return false;
  const std::optional<Key> key = keyOf(message->wParam);
  return key && isDialogKey(*key);
}

bool hitsTreeItem(HWND control, LPARAM place) {
  TVHITTESTINFO hit{};
  hit.pt = {GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  return isOfClass(control, WC_TREEVIEWW) &&
         SendMessageW(control, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)) &&
         (hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMICON));
}

LRESULT takeMessage(HWND control, UINT message, WPARAM first, LPARAM second) {
  Window* window = Window::of(GetParent(control));
  if (!window) return DefSubclassProc(control, message, first, second);
  POINT place{GET_X_LPARAM(second), GET_Y_LPARAM(second)};
  switch (message) {
    case WM_GETDLGCODE:
      return DefSubclassProc(control, message, first, second) | (isForDialog(second) ? DLGC_WANTMESSAGE : 0);
    case WM_KEYDOWN:
      if (takeKeyDown(*window, control, first)) return 0;
      break;  // a grid answers again that it does not use the key
    case WM_CHAR:
      // What came with a key that the dialog used.
      if (first == VK_RETURN || first == VK_ESCAPE || first == VK_TAB) return 0;
      break;
    case WM_RBUTTONDOWN:
      SetFocus(control);
      chooseUnder(control, place);
      return 0;
    case WM_RBUTTONUP:
      if (chooseUnder(control, place)) {
        ClientToScreen(control, &place);
        openMenu(*window, control, place);
      }
      return 0;
    case WM_CONTEXTMENU:
      if (second == -1) openMenu(*window, control, placeUnderChosenRow(control));
      return 0;
    case WM_LBUTTONDBLCLK: {
      const bool onItem = hitsTreeItem(control, second);
      const int id = GetDlgCtrlID(control);
      const LRESULT result = DefSubclassProc(control, message, first, second);
      window = Window::of(GetParent(control));
      if (onItem && window) window->tell([id](Dialog& dialog) { dialog.onDoubleClicked(id); });
      return result;
    }
    default:
      break;
  }
  return DefSubclassProc(control, message, first, second);
}

LRESULT CALLBACK watcher(HWND control, UINT message, WPARAM first, LPARAM second, UINT_PTR, DWORD_PTR) {
  return guarded(LRESULT{0}, [&] { return takeMessage(control, message, first, second); });
}

}  // namespace

POINT placeUnderChosenRow(HWND control) {
  const RECT row = rectOfChosenRow(control);
  POINT place{row.left, row.bottom};
  ClientToScreen(control, &place);
  return place;
}

void watchControl(HWND control) { SetWindowSubclass(control, watcher, kWatcher, 0); }

void useAsDialogKey(HWND dialog, Key key) {
  if (key == Key::kTab) {
    SendMessageW(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, FALSE);
  } else if (key == Key::kEscape) {
    press(dialog, IDCANCEL);
  } else {
    const LRESULT standard = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    press(dialog, HIWORD(standard) == DC_HASDEFID ? LOWORD(standard) : IDOK);
  }
}

}  // namespace kiv::win32
