#pragma once
// Where the lines of a linear dimension run, from its points alone.

#include <array>

#include "embedded/graphics/dimensions/figure.h"

namespace cad {

struct LinearFrame {
  Vec along;                   // unit vector: the direction that is measured in
  Vec run;                     // unit vector: from the first foot to the second
  std::array<Vec, 2> origins;  // of the extension lines
  std::array<Vec, 2> feet;     // of the extension lines on the dimension line
  // Unit vectors along the extension lines, from the origins to the feet and beyond.
  std::array<Vec, 2> beyond;
  std::array<bool, 2> onLine{};  // the origin is its own foot
  double length = 0;             // between the feet
  Vec outward;                   // unit vector: away from what is dimensioned

  explicit LinearFrame(const DimFigure& figure);
  Vec at(double place) const { return feet[0] + place * run; }  // from the first foot
  double placeOf(Vec point) const { return dot(point - feet[0], run); }
};

}  // namespace cad
