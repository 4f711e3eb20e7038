#include "platform/win32/hands.h"

#include "platform/win32/dialog_keys.h"

namespace kiv::win32 {
namespace {

LPARAM packed(POINT place) { return MAKELPARAM(place.x, place.y); }

// Where the pointer is decides what a control takes a click for, as much as the place in the message.
void movePointer(HWND window, POINT place) {
  ClientToScreen(window, &place);
  SetCursorPos(place.x, place.y);
}

void setHeld(int virtualKey, bool down) {
  BYTE keys[256];
  GetKeyboardState(keys);
  keys[virtualKey] = down ? 0x80 : 0;
  SetKeyboardState(keys);
}

// As long as it lives the key is down.
class HeldDown {
 public:
  explicit HeldDown(Held held)
      : key_(held == Held::kShift     ? VK_SHIFT
             : held == Held::kControl ? VK_CONTROL
                                      : 0) {
    if (key_) setHeld(key_, true);
  }
  ~HeldDown() {
    if (key_) setHeld(key_, false);
  }
  HeldDown(const HeldDown&) = delete;
  HeldDown& operator=(const HeldDown&) = delete;

 private:
  int key_;
};

WPARAM mouseFlag(Held held) {
  return held == Held::kShift ? MK_SHIFT : held == Held::kControl ? MK_CONTROL : 0;
}

bool isExtended(WPARAM virtualKey) {
  return (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) || virtualKey == VK_INSERT ||
         virtualKey == VK_DELETE;
}

}  // namespace

void handleMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (passToDialog(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void postClick(HWND window, POINT place, MouseButton button, Held held) {
  const bool left = button == MouseButton::kLeft;
  const WPARAM flag = mouseFlag(held);
  movePointer(window, place);
  PostMessageW(window, left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN, flag | (left ? MK_LBUTTON : MK_RBUTTON),
               packed(place));
  PostMessageW(window, left ? WM_LBUTTONUP : WM_RBUTTONUP, flag, packed(place));
}

void clickAt(HWND window, POINT place, MouseButton button, Held held) {
  const HeldDown down(held);
  postClick(window, place, button, held);
  handleMessages();
}

void doubleClickAt(HWND window, POINT place) {
  clickAt(window, place);
  if (!IsWindow(window)) return;
  PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, packed(place));
  PostMessageW(window, WM_LBUTTONUP, 0, packed(place));
  handleMessages();
}

void pressKeyIn(HWND window, WPARAM virtualKey, Held held) {
  const LPARAM repeated = 1;
  const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC))
                      << 16;
  const LPARAM down = repeated | scan | (isExtended(virtualKey) ? LPARAM{1} << 24 : 0);
  const LPARAM up = down | LPARAM{3} << 30;
  const HeldDown modifier(held);
  PostMessageW(window, WM_KEYDOWN, virtualKey, down);
  handleMessages();
  if (IsWindow(window)) PostMessageW(window, WM_KEYUP, virtualKey, up);
  handleMessages();
}

void pressWithAlt(HWND window, WPARAM virtualKey) {
  const LPARAM down = 1 | LPARAM{1} << 29;
  setHeld(VK_MENU, true);
  PostMessageW(window, WM_SYSKEYDOWN, VK_MENU, down);
  PostMessageW(window, WM_SYSKEYDOWN, virtualKey, down);
  handleMessages();
  setHeld(VK_MENU, false);
}

bool typeInto(HWND window, std::wstring_view text) {
  for (const wchar_t character : text) {
    if (!isUsable(window)) return false;
    PostMessageW(window, WM_CHAR, static_cast<WPARAM>(character), 1);
    handleMessages();
  }
  return true;
}

POINT centreOf(const RECT& rect) { return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2}; }

bool isUsable(HWND window) { return IsWindow(window) && IsWindowVisible(window) && IsWindowEnabled(window); }

}  // namespace kiv::win32
