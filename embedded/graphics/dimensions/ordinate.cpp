#include <algorithm>

#include "embedded/graphics/dimensions/fit.h"

namespace cad {
namespace {

// The leader runs along the axis that is not told, from the feature to its end, and between the two knees
// from the feature's line to the end's. Knees keep their distance from the end; a leader too short for them
// has them closer together, and one that is straight has none.
struct OrdinateLeader {
  Vec start, firstKnee, secondKnee;
  Vec axis;  // unit vector, towards the end
  bool straight = false;

  explicit OrdinateLeader(const Sketch& sketch) {
    const DimFigure& figure = sketch.figure();
    axis = direction(sketch.horizontal());
    if (figure.alongX) axis = leftOf(axis);
    const Vec way = figure.second - figure.first;
    if (dot(way, axis) < 0) axis = -axis;
    const double along = dot(way, axis), across = cross(axis, way);
    const double offset = std::min(sketch.offset, along);
    const double first = std::max(along - 4 * sketch.arrowSize, offset);
    const double second = std::max(along - 2 * sketch.arrowSize, first);
    start = figure.first + offset * axis;
    firstKnee = figure.first + first * axis;
    secondKnee = figure.second + (second - along) * axis;
    straight = std::abs(across) <= nearness(figure.first);
  }
};

void drawPieces(Sketch& sketch, const OrdinateLeader& leader, Vec end) {
  const auto line = [&](Vec from, Vec to) {
    if (distance(from, to) > 0) sketch.extensionLine(1, from, to);
  };
  if (leader.straight) return line(leader.start, end);
  line(leader.start, leader.firstKnee);
  line(leader.firstKnee, leader.secondKnee);
  line(leader.secondKnee, end);
}

}  // namespace

// The text follows the leader's end and its direction, wherever the record has it and whatever the variables
// say of horizontal texts.
DimPicture drawOrdinate(const DimFigure& figure) {
  Sketch sketch(figure);
  const OrdinateLeader leader(sketch);
  const double rotation =
      figure.textRotation != 0 ? sketch.horizontal() + figure.textRotation : sketch.readableLine(leader.axis);
  const TextStand stand = standTurned(sketch, leader.axis, rotation, leftOf(leader.axis));
  const double half = sketch.halfAlong(leader.axis, rotation);
  // Under a text that is off the line the leader runs on to its end.
  const double under = stand.breaksLine || !sketch.hasText() ? 0 : 2 * half - sketch.gap;
  drawPieces(sketch, leader, figure.second + under * leader.axis);
  sketch.text(figure.second + half * leader.axis + stand.lift * stand.up, rotation);
  for (const DimPoint point : {DimPoint::kFirst, DimPoint::kSecond, DimPoint::kLine}) sketch.point(point);
  return sketch.take();
}

}  // namespace cad
