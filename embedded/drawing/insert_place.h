#pragma once
// Where a block reference puts what stands in its block.

#include <cmath>

#include "embedded/drawing/geometry.h"

namespace cad {

struct InsertPlace {
  Point at, base;                  // of the reference; of the block
  double scale = 1, rotation = 0;  // degrees

  Point of(const Point& point) const {
    const double x = (point.x - base.x) * scale, y = (point.y - base.y) * scale;
    const double cosine = std::cos(rotation * kRadiansPerDegree),
                 sine = std::sin(rotation * kRadiansPerDegree);
    return {at.x + x * cosine - y * sine, at.y + x * sine + y * cosine, at.z + (point.z - base.z) * scale};
  }
  // How much it turns the block, in degrees: a negative scale in both directions is half a circle.
  double turn() const { return rotation + (scale < 0 ? 180 : 0); }
};

}  // namespace cad
