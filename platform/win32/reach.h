#pragma once
// What a person can get at.

#include "platform/win32/hands.h"
#include "platform/win32/window.h"

namespace kiv::win32 {

// A dialog, and a control of it: true when they are shown and enabled.
class Reach {
 public:
  explicit Reach(DialogWindow& dialog);
  Reach(DialogWindow& dialog, int id);

  explicit operator bool() const { return usable_; }
  bool isA(const wchar_t* windowClass) const { return usable_ && isOfClass(control_, windowClass); }
  Window& window() const { return window_; }
  HWND dialog() const { return dialog_; }
  HWND control() const { return control_; }

  // As a click anywhere in it does.
  void bringToFront() const;

 private:
  Window& window_;
  HWND dialog_;
  HWND control_ = nullptr;
  bool usable_;
};

}  // namespace kiv::win32
