#pragma once
// Where the drawing lies in the picture.

#include "embedded/graphics/pictures/picture.h"

namespace cad {

// In pixels, as exact as the drawing.
struct PixelPoint {
  double x = 0, y = 0;
};

struct PixelView {
  double scale = 1;          // pixels to a drawing unit
  double left = 0, top = 0;  // drawing units at the picture's upper left corner

  PixelPoint point(double x, double y) const { return {(x - left) * scale, (top - y) * scale}; }
  PixelPoint vector(double x, double y) const { return {x * scale, -y * scale}; }
};

inline PicturePoint rounded(PixelPoint at) { return {static_cast<float>(at.x), static_cast<float>(at.y)}; }

}  // namespace cad
