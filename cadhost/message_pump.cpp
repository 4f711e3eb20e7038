#include "cadhost/message_pump.h"

#include <windowsx.h>

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

// A command may wait for its dialog only, and would wait for ever once there is no more input. What a person
// could close now is closed; what is behind it has its turn when the command waits again.
void closeOthers(HWND frame) {
  const auto close = [](HWND window, LPARAM kept) -> BOOL {
    const bool closable = (GetWindowLongPtrW(window, GWL_STYLE) & WS_SYSMENU) != 0;
    if (window != reinterpret_cast<HWND>(kept) && closable && IsWindowVisible(window) &&
        IsWindowEnabled(window))
      SendMessageW(window, WM_CLOSE, 0, 0);
    return TRUE;
  };
  EnumThreadWindows(GetCurrentThreadId(), close, reinterpret_cast<LPARAM>(frame));
}

}  // namespace

// Typed ahead while a command was running, or the next one of the system's.
MessagePump::Taken MessagePump::take() {
  Taken out;
  if (!typedAhead_.empty()) {
    out.message = typedAhead_.front();
    typedAhead_.pop_front();
    out.translated = true;
  } else {
    out.quits = GetMessageW(&out.message, nullptr, 0, 0) <= 0;
  }
  return out;
}

void MessagePump::dispatch(Taken& taken) {
  MSG& message = taken.message;
  if (host_.filterMessage(&message)) return;
  const bool ours = isOurs(message.hwnd);
  if (ours && TranslateAcceleratorW(windows_.frame, windows_.accelerators, &message)) return;
  // The wheel belongs to what is under the pointer, not to what has the focus.
  const POINT at{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
  if (message.message == WM_MOUSEWHEEL && ours && isOverWindow(windows_.view, at))
    message.hwnd = windows_.view;
  if (!taken.translated) TranslateMessage(&message);
  DispatchMessageW(&message);
}

int MessagePump::run() {
  while (true) {
    Taken taken = take();
    if (taken.quits) return static_cast<int>(taken.message.wParam);
    dispatch(taken);
  }
}

std::optional<cad::InputEvent> MessagePump::waitForEvent() {
  const InputQueue::Waiting waiting(input_);
  if (beforeWait_) beforeWait_();
  while (true) {
    if (std::optional<cad::InputEvent> event = input_.takeEvent(host_.isPicking())) return event;
    Taken taken = take();
    if (taken.quits) {
      closeOthers(windows_.frame);
      PostQuitMessage(static_cast<int>(taken.message.wParam));
      return std::nullopt;
    }
    // A module's window may have changed what the waiting command is to do.
    const bool elsewhere = !isOurs(taken.message.hwnd) && isUserInput(taken.message.message);
    dispatch(taken);
    if (elsewhere) input_.wake();
  }
}

void MessagePump::paint() {
  constexpr int kMostWindows = 64;  // one that leaves itself unpainted is asked again and again
  MSG message;
  for (int i = 0; i < kMostWindows && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i)
    DispatchMessageW(&message);
}

bool MessagePump::isBreakWanted() {
  MSG message;
  while (PeekMessageW(&message, windows_.frame, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
      input_.cancel();
      continue;
    }
    // Which character a key means depends on the keys that are down when it is taken from the queue.
    TranslateMessage(&message);
    typedAhead_.push_back(message);
  }
  return input_.isBreakWanted();
}

}  // namespace cadhost
