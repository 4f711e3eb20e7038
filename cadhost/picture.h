#pragma once
// A picture in memory which the canvas and the system's text drawing share.

#include <windows.h>

#include <cstdint>
#include <memory>

#include "cadhost/canvas.h"

namespace cadhost {

class Picture {
 public:
  // Null when the system has no memory for it.
  static std::unique_ptr<Picture> create(int width, int height);
  ~Picture();
  Picture(const Picture&) = delete;
  Picture& operator=(const Picture&) = delete;

  int width() const { return width_; }
  int height() const { return height_; }
  HDC dc() const { return dc_; }
  // For drawing into the memory; what the system has still to draw is drawn first.
  Canvas canvas();
  void scroll(int dx, int dy);  // what comes in keeps its old pixels
  void copyFrom(const Picture& other);

 private:
  Picture(HDC dc, HBITMAP bitmap, std::uint32_t* pixels, int width, int height);
  HDC dc_;
  HBITMAP bitmap_;
  HGDIOBJ former_;
  std::uint32_t* pixels_;
  int width_, height_;
};

}  // namespace cadhost
