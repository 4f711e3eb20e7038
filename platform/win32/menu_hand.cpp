#include "platform/win32/menu_hand.h"

namespace kiv::win32 {
namespace {

constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU: the menu that a menu's window shows

bool shows(HWND window, void* menu) {
  return SendMessageW(window, kGetMenu, 0, 0) == reinterpret_cast<LRESULT>(menu);
}

bool isOpen(HMENU menu) { return findOwnWindow(L"#32768", shows, menu) != nullptr; }

// Whether the item stands in the menu or under one of its items.
bool holds(HMENU menu, int item) {
  return GetMenuState(menu, static_cast<UINT>(item), MF_BYCOMMAND) != static_cast<UINT>(-1);
}

bool isEnabled(HMENU menu, int item) {
  return !(GetMenuState(menu, static_cast<UINT>(item), MF_BYCOMMAND) & (MF_GRAYED | MF_DISABLED));
}

// The position of the item itself or of the sub-menu that leads to it.
int positionTowards(HMENU menu, int item) {
  for (int position = 0; position < GetMenuItemCount(menu); ++position) {
    const HMENU below = GetSubMenu(menu, position);
    if (below ? holds(below, item) : GetMenuItemID(menu, position) == static_cast<UINT>(item))
      return position;
  }
  return -1;
}

bool isHighlighted(HMENU menu, int position) {
  return GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION) & MF_HILITE;
}

}  // namespace

MenuHand::MenuHand(HWND owner, HMENU menu, int item) : owner_(owner), menu_(menu), item_(item) { begin(); }

bool MenuHand::step() {
  if (!isOpen(menu_)) return false;
  if (item_ != 0 && (!holds(menu_, item_) || !isEnabled(menu_, item_))) {
    report(L"the menu has no item " + std::to_wstring(item_) + L" that can be chosen");
    item_ = 0;
  }
  if (item_ == 0) {
    EndMenu();
    return true;
  }
  // Down the open menus towards the item, one key at a time.
  for (HMENU menu = menu_;;) {
    const int position = positionTowards(menu, item_);
    if (!isHighlighted(menu, position)) {
      PostMessageW(owner_, WM_KEYDOWN, VK_DOWN, 0);
      return false;
    }
    const HMENU below = GetSubMenu(menu, position);
    if (below && isOpen(below)) {
      menu = below;
      continue;
    }
    PostMessageW(owner_, WM_KEYDOWN, below ? VK_RIGHT : VK_RETURN, 0);
    return !below;
  }
}

void MenuHand::giveUp() { EndMenu(); }

std::wstring MenuHand::name() const { return L"the context menu"; }

}  // namespace kiv::win32
