#pragma once
// Angles as values that people compare; in geometry they have all their digits.

#include <cmath>

#include "embedded/drawing/geometry.h"

namespace cad {

// Rounded to 12 decimals, so that whole degrees that passed through radians are whole again.
inline double degreesFromRadians(double radians) {
  return std::round(radians / kRadiansPerDegree * 1e12) / 1e12;
}

}  // namespace cad
