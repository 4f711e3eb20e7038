#include "platform/win32/access_keys.h"

// Needs what windows.h declares.
#include <commctrl.h>

#include <algorithm>
#include <string>
#include <utility>

#include "platform/screen_scale.h"

namespace kiv::win32 {
namespace {

// Of the reference resolution, from the control's left and from its lower edge, or the upper one of a high
// control.
constexpr int kHintFromLeft = 2;
constexpr int kHintFromTop = 14;
constexpr int kHintFromBottom = 8;

std::vector<ACCEL> entriesOf(HACCEL table) {
  std::vector<ACCEL> entries(static_cast<std::size_t>(table ? CopyAcceleratorTableW(table, nullptr, 0) : 0));
  if (!entries.empty()) CopyAcceleratorTableW(table, entries.data(), static_cast<int>(entries.size()));
  return entries;
}

HWND makeHint(HWND dialog, HWND control, wchar_t letter) {
  const HWND hint = CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, TOOLTIPS_CLASSW, nullptr,
                                    WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, dialog, nullptr,
                                    moduleInstance(), nullptr);
  RECT place{};
  GetWindowRect(control, &place);
  const LONG top = std::min(place.bottom - scaled(kHintFromBottom), place.top + scaled(kHintFromTop));
  std::wstring text(1, letter);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;  // whichever version of the controls the host has
  tool.uFlags = TTF_TRACK | TTF_ABSOLUTE;
  tool.hwnd = dialog;
  tool.lpszText = text.data();
  SendMessageW(hint, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(hint, TTM_TRACKPOSITION, 0, MAKELPARAM(place.left + scaled(kHintFromLeft), top));
  SendMessageW(hint, TTM_TRACKACTIVATE, TRUE, reinterpret_cast<LPARAM>(&tool));
  return hint;
}

bool isAltDown(const MSG& message) { return message.message == WM_SYSKEYDOWN && message.wParam == VK_MENU; }

}  // namespace

AccessKeys::AccessKeys(int dialog)
    : table_(LoadAcceleratorsW(moduleInstance(), MAKEINTRESOURCEW(dialog))), keys_(entriesOf(table_)) {}

AccessKeys::~AccessKeys() {
  if (table_) DestroyAcceleratorTable(table_);
}

bool AccessKeys::take(HWND dialog, MSG& message) {
  if (isAltDown(message)) {
    showHints(dialog);
  } else {
    hideHints();
  }
  return table_ && IsWindowEnabled(dialog) && TranslateAcceleratorW(dialog, table_, &message);
}

void AccessKeys::showHints(HWND dialog) {
  if (!hints_.empty()) return;  // the key repeats
  for (const ACCEL& each : keys_) {
    const HWND control = GetDlgItem(dialog, each.cmd);
    if (control && IsWindowVisible(control) && IsWindowEnabled(control))
      hints_.push_back(makeHint(dialog, control, static_cast<wchar_t>(each.key)));
  }
}

void AccessKeys::hideHints() {
  for (const HWND hint : std::exchange(hints_, {})) DestroyWindow(hint);
}

}  // namespace kiv::win32
