#pragma once
// How shapes come into a picture: neighbours that are painted alike become one.

#include <span>

#include "embedded/graphics/pictures/pixel_view.h"

namespace cad {

// How a shape is painted.
struct Brush {
  Rgb color = 0;
  float width = 0;  // pixels; 0: filled
  std::uint8_t opacity = 255;
  std::uint32_t clip = kNoClip;
  bool evenOdd = true;
};

class PicturePaths {
 public:
  explicit PicturePaths(Picture& picture) : picture_(picture), to_(&picture.shapes) {}

  // Shapes go there from now on.
  void into(std::vector<PictureShape>& shapes) { to_ = &shapes; }
  // What is added from now on is painted so. A new area, filled even-odd, never joins one before it.
  void begin(const Brush& brush);
  void add(std::span<const PixelPoint> points, bool closed);
  void addDot(PixelPoint at) { add({&at, 1}, false); }

 private:
  Picture& picture_;
  std::vector<PictureShape>* to_;
};

}  // namespace cad
