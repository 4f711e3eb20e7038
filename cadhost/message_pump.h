#pragma once
// The message loop, and the same loop inside a command that waits for input.

#include <windows.h>

#include <deque>
#include <functional>
#include <optional>

#include "cadhost/input_queue.h"
#include "embedded/editor/host.h"

namespace cadhost {

class MessagePump {
 public:
  struct Windows {
    HWND frame = nullptr, view = nullptr;
    HACCEL accelerators = nullptr;
  };

  MessagePump(cad::Host& host, InputQueue& input) : host_(host), input_(input) {}
  void setWindows(Windows windows) { windows_ = windows; }
  // Called before a command begins to wait: what it has done so far is shown then.
  void setBeforeWait(std::function<void()> hand) { beforeWait_ = std::move(hand); }

  int run();  // until WM_QUIT; its exit status
  // The host's input source: handles messages until one of them makes an event. At WM_QUIT there is none any
  // more, and the dialogs of this thread are closed.
  std::optional<cad::InputEvent> waitForEvent();
  // While a command runs: what the windows show is painted, and nothing else is handled.
  static void paint();
  // The host's break query, without handling any other message: keys typed ahead keep their turn.
  bool isBreakWanted();

 private:
  struct Taken {
    MSG message{};
    bool translated = false;  // its characters follow by themselves
    bool quits = false;       // WM_QUIT
  };
  Taken take();
  void dispatch(Taken& taken);
  bool isOurs(HWND window) const { return window == windows_.frame || IsChild(windows_.frame, window); }

  cad::Host& host_;
  InputQueue& input_;
  Windows windows_;
  std::function<void()> beforeWait_;
  std::deque<MSG> typedAhead_;
};

}  // namespace cadhost
