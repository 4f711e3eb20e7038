#include "cadhost/message_pump.h"

#include <windowsx.h>

#include <vector>

namespace cadhost {
namespace {

bool isUserInput(UINT message) {
  return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
         (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST && message != WM_MOUSEMOVE) ||
         (message >= WM_NCLBUTTONDOWN && message <= WM_NCMBUTTONDBLCLK) || message >= WM_USER;
}

bool isOverWindow(HWND window, POINT screen) {
  RECT area{};
  return GetWindowRect(window, &area) && PtInRect(&area, screen);
}

}  // namespace

void MessagePump::dispatch(MSG& message) {
  if (host_.filterMessage(&message)) return;
  const bool ours = isOurs(message.hwnd);
  if (ours && TranslateAcceleratorW(windows_.frame, windows_.accelerators, &message)) return;
  // The wheel belongs to what is under the pointer, not to what has the focus.
  const POINT at{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  if (message.message == WM_MOUSEWHEEL && ours && isOverWindow(windows_.view, at))
    message.hwnd = windows_.view;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

int MessagePump::run() {
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) dispatch(message);
  return static_cast<int>(message.wParam);
}

std::optional<cad::InputEvent> MessagePump::waitForEvent() {
  const InputQueue::Waiting waiting(input_);
  if (beforeWait_) beforeWait_();
  while (true) {
    if (std::optional<cad::InputEvent> event = input_.takeEvent(host_.isPicking())) return event;
    MSG message;
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return std::nullopt;
    }
    // A module's window may have changed what the waiting command is to do.
    const bool elsewhere = !isOurs(message.hwnd) && isUserInput(message.message);
    dispatch(message);
    if (elsewhere) input_.wake();
  }
}

bool MessagePump::isBreakWanted() {
  std::vector<MSG> others;
  MSG message;
  while (PeekMessageW(&message, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE)) {
    if (message.wParam == VK_ESCAPE && isOurs(message.hwnd))
      input_.cancel();
    else
      others.push_back(message);
  }
  for (const MSG& each : others) PostMessageW(each.hwnd, each.message, each.wParam, each.lParam);
  return input_.isBreakWanted();
}

}  // namespace cadhost
