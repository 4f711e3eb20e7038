#pragma once
// The status bar: where the pointer is, and how far a long command has come.

#include <windows.h>

#include <string>

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
  // In place of the point, which has its turn again when nothing runs and the pointer moves. Painted at once.
  void showBatch(const std::wstring& text, bool isRunning);
  // Painted at once: a command that shows it does not return to the message loop.
  void showMeter(const cad::Meter& meter);

 private:
  HWND window_ = nullptr, meter_ = nullptr;
  HFONT font_ = nullptr;
  int shown_ = -1;  // per cent
  std::wstring batch_;
  bool isBatchRunning_ = false;
};

}  // namespace cadhost
