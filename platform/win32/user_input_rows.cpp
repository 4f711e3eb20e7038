// A person's hands on lists, grids and trees.
#include "platform/user_input.h"
#include "platform/win32/grid.h"
#include "platform/win32/grid_window.h"
#include "platform/win32/reach.h"

// Needs what windows.h declares.
#include <commctrl.h>

#include <algorithm>
#include <cstring>

namespace kiv::user {
namespace {

using win32::MouseButton;
using win32::Reach;

bool isGrid(const Reach& reach) { return reach.isA(win32::kGridClass); }

// Where to click on a row, scrolled to be seen. False when there is no such row.
bool placeOfRow(const Reach& reach, int row, POINT& place) {
  RECT rect{};
  const auto at = static_cast<WPARAM>(row);
  if (isGrid(reach)) {
    if (!SendMessageW(reach.control(), win32::kGridShowRow, at, reinterpret_cast<LPARAM>(&rect)))
      return false;
    place = {rect.left / 2, (rect.top + rect.bottom) / 2};  // on the row's number
    return true;
  }
  if (!reach.isA(WC_LISTVIEWW) || row < 0 || row >= SendMessageW(reach.control(), LVM_GETITEMCOUNT, 0, 0))
    return false;
  SendMessageW(reach.control(), LVM_ENSUREVISIBLE, at, FALSE);
  rect.left = LVIR_LABEL;
  SendMessageW(reach.control(), LVM_GETITEMRECT, at, reinterpret_cast<LPARAM>(&rect));
  place = {rect.left + 4, (rect.top + rect.bottom) / 2};
  return true;
}

bool placeOfItem(const Reach& reach, TreeItem item, POINT& place) {
  RECT rect{};
  if (!reach.isA(WC_TREEVIEWW) || item == 0) return false;
  SendMessageW(reach.control(), TVM_ENSUREVISIBLE, 0, static_cast<LPARAM>(item));
  std::memcpy(&rect, &item, sizeof item);
  if (!SendMessageW(reach.control(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect))) return false;
  RECT inside{};
  GetClientRect(reach.control(), &inside);
  place = {std::min<LONG>((rect.left + rect.right) / 2, inside.right - 2), (rect.top + rect.bottom) / 2};
  return true;
}

bool clickRowWith(DialogWindow& window, int id, int row, MouseButton button, Held held = Held::kNothing) {
  const Reach reach(window, id);
  POINT place{};
  if (!placeOfRow(reach, row, place)) return false;
  reach.bringToFront();
  win32::clickAt(reach.control(), place, button, held);
  return true;
}

bool clickItemWith(DialogWindow& window, int id, TreeItem item, MouseButton button) {
  const Reach reach(window, id);
  POINT place{};
  if (!placeOfItem(reach, item, place)) return false;
  reach.bringToFront();
  win32::clickAt(reach.control(), place, button);
  return true;
}

}  // namespace

bool clickRow(DialogWindow& window, int id, int row, Held held) {
  return clickRowWith(window, id, row, MouseButton::kLeft, held);
}

bool rightClickRow(DialogWindow& window, int id, int row) {
  return isGrid(Reach(window, id)) && clickRowWith(window, id, row, MouseButton::kRight);
}

bool doubleClickRow(DialogWindow& window, int id, int row) {
  const Reach reach(window, id);
  POINT place{};
  if (!reach.isA(WC_LISTVIEWW) || !placeOfRow(reach, row, place)) return false;
  reach.bringToFront();
  win32::doubleClickAt(reach.control(), place);
  return true;
}

bool clickHeader(DialogWindow& window, int id, int column) {
  const Reach reach(window, id);
  if (!reach.isA(WC_LISTVIEWW) || column < 0) return false;
  const auto header = reinterpret_cast<HWND>(SendMessageW(reach.control(), LVM_GETHEADER, 0, 0));
  RECT rect{};
  if (!SendMessageW(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&rect)))
    return false;
  reach.bringToFront();
  win32::clickAt(header, win32::centreOf(rect));
  return true;
}

bool clickItem(DialogWindow& window, int id, TreeItem item) {
  return clickItemWith(window, id, item, MouseButton::kLeft);
}

bool doubleClickItem(DialogWindow& window, int id, TreeItem item) {
  const Reach reach(window, id);
  POINT place{};
  if (!placeOfItem(reach, item, place)) return false;
  reach.bringToFront();
  win32::doubleClickAt(reach.control(), place);
  return true;
}

bool rightClickItem(DialogWindow& window, int id, TreeItem item) {
  return clickItemWith(window, id, item, MouseButton::kRight);
}

bool rightClickEmpty(DialogWindow& window, int id) {
  const Reach reach(window, id);
  if (!reach.isA(WC_TREEVIEWW)) return false;
  TVHITTESTINFO hit{};
  RECT inside{};
  GetClientRect(reach.control(), &inside);
  hit.pt = {inside.right / 2, inside.bottom - 1};
  if (SendMessageW(reach.control(), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) return false;
  reach.bringToFront();
  win32::clickAt(reach.control(), hit.pt, MouseButton::kRight);
  return true;
}

bool typeCell(DialogWindow& window, int id, int row, std::wstring_view text) {
  if (!isGrid(Reach(window, id)) || !clickRow(window, id, row)) return false;
  const Reach reach(window, id);
  if (!reach) return true;  // the dialog closed because of the click
  const HWND field = win32::GridWindow::of(reach.control())->editor();
  if (text.empty()) win32::pressKeyIn(field, VK_DELETE);
  win32::typeInto(field, text);
  return true;
}

}  // namespace kiv::user
