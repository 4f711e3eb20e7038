#include "platform/dialog_backend.h"
#include "platform/win32/dialog_keys.h"
#include "platform/win32/grid.h"
#include "platform/win32/people.h"
#include "platform/win32/window.h"

namespace kiv {
namespace {

using win32::Window;

Window& realWindow(Dialog& dialog) { return static_cast<Window&>(dialog.window()); }

// One message of the thread; false when the program shall end.
bool serveOneMessage() {
  MSG message{};
  if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
    PostQuitMessage(static_cast<int>(message.wParam));  // for the loop that runs the program
    return false;
  }
  if (win32::passToDialog(message)) return true;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

}  // namespace

bool DialogBackend::canShow() { return win32::somebodyAnswers() && GetSystemMetrics(SM_CXSCREEN) > 0; }

bool DialogBackend::isScripted() { return win32::attendant() != nullptr; }

std::unique_ptr<DialogWindow> DialogBackend::createWindow(Dialog& dialog, NativeWindow owner) {
  return Window::make(dialog, static_cast<HWND>(owner));
}

void DialogBackend::runModal(Dialog& dialog, NativeWindow owner) {
  const HWND handle = realWindow(dialog).handle();
  const HWND top = owner ? GetAncestor(static_cast<HWND>(owner), GA_ROOT) : nullptr;
  const bool disablesOwner = top && IsWindowEnabled(top);
  if (disablesOwner) EnableWindow(top, FALSE);
  realWindow(dialog).show(true);
  realWindow(dialog).activate();
  {
    const auto attendance = win32::attended(handle);
    while (!hasEnded(dialog))
      if (!serveOneMessage()) abandon(dialog);
  }
  // Before this window goes: otherwise the system makes another program's window the active one.
  if (disablesOwner) EnableWindow(top, TRUE);
  ShowWindow(handle, SW_HIDE);
  if (top && IsWindowVisible(top)) SetActiveWindow(top);
}

void DialogBackend::destroyWindow(std::unique_ptr<DialogWindow> window) {
  static_cast<Window*>(window.release())->goAway();
}

void DialogBackend::release() { win32::unregisterGridClass(); }

}  // namespace kiv
