#include "platform/win32/dialog_keys.h"

#include "platform/host_output.h"
#include "platform/win32/combo_box.h"
#include "platform/win32/host_messages.h"
#include "platform/win32/window.h"

namespace kiv::win32 {
namespace {

// Not every control hands its keys on, and this one means the whole dialog.
bool takesRenewalKey(Window& window, const MSG& message) {
  if (message.message != WM_KEYDOWN || message.wParam != VK_F5) return false;
  bool taken = false;
  const bool alive = window.tell([&](Dialog& dialog) { taken = dialog.onKey(window.focused(), Key::kF5); });
  return taken || !alive;
}

BOOL filterHostMessage(MSG* message) {
  return guarded(FALSE, [&]() -> BOOL { return passToDialog(*message); });
}

}  // namespace

bool passToDialog(MSG& message) {
  if (takeSecondClick(message)) return true;
  if (message.message < WM_KEYFIRST || message.message > WM_KEYLAST || !message.hwnd) return false;
  Window* window = Window::of(GetAncestor(message.hwnd, GA_ROOT));
  if (!window) return false;
  const HWND dialog = window->handle();
  if (window->accessKeys().take(dialog, message) || takesRenewalKey(*window, message)) return true;
  return IsDialogMessageW(dialog, &message);
}

void listenToHostMessages(bool on) {
  if (on) {
    addMessageFilter(filterHostMessage);
  } else {
    removeMessageFilter(filterHostMessage);
  }
}

}  // namespace kiv::win32
