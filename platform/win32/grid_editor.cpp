#include "platform/win32/grid_editor.h"

// Needs what windows.h declares.
#include <commctrl.h>

namespace kiv::win32 {
namespace {

constexpr UINT_PTR kWatcher = 1;

LPARAM placeInGrid(HWND field, LPARAM place) {
  POINT point{static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
  MapWindowPoints(field, GetParent(field), &point, 1);
  return MAKELPARAM(point.x, point.y);
}

// The grid sees keys and the right button first, as if it had no field.
LRESULT CALLBACK watcher(HWND field, UINT message, WPARAM first, LPARAM second, UINT_PTR, DWORD_PTR) {
  const HWND grid = GetParent(field);
  switch (message) {
    case WM_GETDLGCODE:
      return DefSubclassProc(field, message, first, second) | DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
      if (SendMessageW(grid, message, first, second) == 0) return 0;
      break;
    case WM_CHAR:
      if (first == VK_RETURN || first == VK_ESCAPE || first == VK_TAB) return 0;
      break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
      return SendMessageW(grid, message, first, placeInGrid(field, second));
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
      return SendMessageW(grid, message, first, second);
    default:
      break;
  }
  return DefSubclassProc(field, message, first, second);
}

}  // namespace

GridEditor::GridEditor(HWND grid)
    : field_(CreateWindowExW(0, WC_EDITW, L"", WS_CHILD | WS_CLIPSIBLINGS | ES_AUTOHSCROLL, 0, 0, 0, 0, grid,
                             nullptr, moduleInstance(), nullptr)) {
  SetWindowSubclass(field_, watcher, kWatcher, 0);
}

void GridEditor::show(std::wstring_view text) {
  quiet_ = true;
  SetWindowTextW(field_, terminated(text).c_str());
  quiet_ = false;
  SendMessageW(field_, EM_SETSEL, 0, -1);
  editing_ = false;
}

void GridEditor::open(std::wstring_view text) {
  original_ = text;
  show(text);
}

void GridEditor::beginEditing() {
  const auto end = static_cast<WPARAM>(GetWindowTextLengthW(field_));
  SendMessageW(field_, EM_SETSEL, end, static_cast<LPARAM>(end));
  editing_ = true;
}

void GridEditor::noteChange() { editing_ = true; }

bool GridEditor::cancel() {
  if (text() == original_) return false;
  show(original_);
  return true;
}

void GridEditor::commit() { open(text()); }

void GridEditor::setFont(HFONT font, int padding) {
  SendMessageW(field_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  SendMessageW(field_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(padding, padding));
}

void GridEditor::place(const Rect& cell) {
  if (cell.isEmpty()) {
    ShowWindow(field_, SW_HIDE);
    return;
  }
  SetWindowPos(field_, HWND_TOP, cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top,
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

}  // namespace kiv::win32
