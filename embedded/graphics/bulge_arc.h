#pragma once
// The circular arc between two points that a bulge stands for.

#include <optional>

#include "embedded/graphics/scene.h"

namespace cad {

struct BulgeArc {
  double x = 0, y = 0, radius = 0;    // centre
  double start = 0, sweep = 0;        // radians; below 0: clockwise
  ScenePoint at(double angle) const;  // absolute
  bool covers(double angle) const;
};

// Absent for a straight piece: no bulge, or a chord without length.
std::optional<BulgeArc> arcBetween(const ScenePoint& from, const ScenePoint& to);

// How finely arcs are cut into straight pieces where they turn into ellipses: a tolerance for flatten().
double finenessOf(std::span<const ScenePoint> points);

// The box of a piece, its arc included.
void addPiece(SceneBox& box, const ScenePoint& from, const ScenePoint& to);

}  // namespace cad
