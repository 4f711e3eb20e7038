#pragma once
// Which arc an angular dimension measures: between two lines or by a vertex and two points.

#include <array>
#include <optional>

#include "embedded/graphics/dimensions/figure.h"

namespace cad {

// Counter-clockwise from its end 1 to its end 2, whichever of them was picked first.
struct MeasuredArc {
  // Where on the ray of an end the thing lies that is measured: distances from the vertex, below 0 on the
  // other side of it. A point has one, a line reaches from the one to the other.
  struct Reach {
    double from = 0, to = 0;
  };
  Vec vertex;
  double radius = 0;
  double start = 0, sweep = 0;  // radians; sweep > 0
  std::array<Reach, 2> reaches;

  double end() const { return start + sweep; }
  double angle(int end) const { return end == 1 ? start : start + sweep; }
  double middle() const { return start + sweep / 2; }
  Vec at(double angle) const { return vertex + radius * direction(angle); }
  // Along the arc, counter-clockwise.
  Vec tangent(double angle) const { return leftOf(direction(angle)); }
  // The angle that a length along the arc takes.
  double over(double length) const { return length / radius; }
  // That a chord takes: at most the one that is as long as the radius.
  double overChord(double length) const;
  // Into the turn that begins half a turn before the middle of the arc: between `start` and end() if the arc
  // holds the angle.
  double near(double angle) const;
  bool holds(double nearAngle) const;
};

// None where there is no angle: parallel lines, a point in the vertex, an arc without radius, numbers too
// large.
std::optional<MeasuredArc> measuredArc(const DimFigure& figure);

}  // namespace cad
