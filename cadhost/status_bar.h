#pragma once
// The status bar: where the pointer is, and how far a long command has come.

#include <windows.h>

#include "cadhost/view_transform.h"
#include "embedded/editor/host.h"

namespace cadhost {

class StatusBar {
 public:
  ~StatusBar();
  bool create(HWND parent);
  HWND window() const { return window_; }
  void applyFont();  // again, after the monitor has changed
  void layOut();     // after the parent has another size
  int height() const;

  void showPoint(DrawingPoint point, double pixelsPerUnit);
  // Painted at once: a command that shows it does not return to the message loop.
  void showMeter(const cad::Meter& meter);

 private:
  HWND window_ = nullptr, meter_ = nullptr;
  HFONT font_ = nullptr;
  int shown_ = -1;  // per cent
};

}  // namespace cadhost
