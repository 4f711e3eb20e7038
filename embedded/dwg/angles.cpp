#include "embedded/dwg/angles.h"

#include <cmath>
#include <limits>

#include "embedded/drawing/geometry.h"

namespace cad::dwg {

double degreesOf(double radians) { return radians / kRadiansPerDegree; }

double radiansOf(double degrees) {
  const double radians = degrees * kRadiansPerDegree;
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  for (const double other : {radians, std::nextafter(radians, kEndless), std::nextafter(radians, -kEndless)})
    if (degreesOf(other) == degrees) return other;
  return radians;
}

}  // namespace cad::dwg
