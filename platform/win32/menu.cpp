#include <algorithm>

#include "platform/questions.h"
#include "platform/win32/people.h"
#include "platform/win32/system.h"

namespace kiv {
namespace {

struct DestroyMenuOnReturn {
  HMENU menu;
  ~DestroyMenuOnReturn() { DestroyMenu(menu); }
};

std::wstring captionOf(HMENU menu, UINT position) {
  const int length = GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION);
  std::wstring text(static_cast<std::size_t>(std::max(length, 0)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION)));
  return text;
}

Menu itemsOf(HMENU menu) {
  Menu items;
  const int count = GetMenuItemCount(menu);
  for (int position = 0; position < count; ++position) {
    const auto at = static_cast<UINT>(position);
    MenuItem item;
    const UINT state = GetMenuState(menu, at, MF_BYPOSITION);
    if (const HMENU below = GetSubMenu(menu, position)) {
      item.items = itemsOf(below);
      item.text = captionOf(menu, at);
    } else if (!(state & MF_SEPARATOR)) {
      item.id = static_cast<int>(GetMenuItemID(menu, position));
      item.text = captionOf(menu, at);
      item.enabled = !(state & (MF_GRAYED | MF_DISABLED));
    }
    items.push_back(std::move(item));
  }
  return items;
}

HMENU systemMenu(const Menu& items) {
  const HMENU menu = CreatePopupMenu();
  for (const MenuItem& item : items) {
    const UINT state = item.enabled ? MF_ENABLED : MF_GRAYED;
    if (!item.items.empty()) {
      AppendMenuW(menu, MF_POPUP | state, reinterpret_cast<UINT_PTR>(systemMenu(item.items)),
                  item.text.c_str());
    } else if (item.text.empty()) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else {
      AppendMenuW(menu, MF_STRING | state, static_cast<UINT_PTR>(item.id), item.text.c_str());
    }
  }
  return menu;
}

}  // namespace

Menu loadMenu(int resource) {
  const HMENU menu = LoadMenuW(win32::moduleInstance(), MAKEINTRESOURCEW(resource));
  if (!menu) return {};
  const DestroyMenuOnReturn destroying{menu};
  return itemsOf(menu);
}

int showMenu(DialogWindow& owner, const Menu& menu, Place screen) {
  const auto window = static_cast<HWND>(owner.native());
  const HMENU shown = systemMenu(menu);
  const DestroyMenuOnReturn destroying{shown};
  if (!win32::somebodyAnswers()) return 0;
  const auto attendance = win32::attended(window, shown, menu);
  return TrackPopupMenuEx(shown, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, window, nullptr);
}

}  // namespace kiv
