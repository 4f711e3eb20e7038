#include "embedded/graphics/bulge_arc.h"

#include <cmath>
#include <numbers>

namespace cad {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kFlat = 1e-9;  // a bulge below this is a straight piece to any eye

}  // namespace

ScenePoint BulgeArc::at(double angle) const {
  return {x + radius * std::cos(angle), y + radius * std::sin(angle)};
}

bool BulgeArc::covers(double angle) const {
  double turned = std::fmod(sweep > 0 ? angle - start : start - angle, kTurn);
  if (turned < 0) turned += kTurn;
  return turned <= std::abs(sweep);
}

std::optional<BulgeArc> arcBetween(const ScenePoint& from, const ScenePoint& to) {
  const double bulge = from.bulge, dx = to.x - from.x, dy = to.y - from.y;
  const double chord = std::hypot(dx, dy);
  if (std::abs(bulge) < kFlat || chord == 0 || !std::isfinite(bulge)) return std::nullopt;
  // The centre lies on the chord's perpendicular, to the left for small arcs to the left.
  const double offset = (1 - bulge * bulge) / (4 * bulge);
  BulgeArc arc;
  arc.x = (from.x + to.x) / 2 - dy * offset;
  arc.y = (from.y + to.y) / 2 + dx * offset;
  arc.radius = chord * (1 + bulge * bulge) / (4 * std::abs(bulge));
  arc.start = std::atan2(from.y - arc.y, from.x - arc.x);
  arc.sweep = 4 * std::atan(bulge);
  return arc;
}

double finenessOf(std::span<const ScenePoint> points) {
  SceneBox box;
  for (const ScenePoint& point : points) box.add(point.x, point.y);
  return std::hypot(box.right - box.left, box.top - box.bottom) / 2000;
}

void addPiece(SceneBox& box, const ScenePoint& from, const ScenePoint& to) {
  box.add(from.x, from.y);
  box.add(to.x, to.y);
  const std::optional<BulgeArc> arc = arcBetween(from, to);
  if (!arc) return;
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double angle = quarter * kTurn / 4;
    if (!arc->covers(angle)) continue;
    const ScenePoint extreme = arc->at(angle);
    box.add(extreme.x, extreme.y);
  }
}

}  // namespace cad
