#include "embedded/graphics/bulge_arc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cad {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kFlat = 1e-9;        // a bulge below this is a straight piece to any eye
constexpr double kMostPieces = 2000;  // of one arc

void flattenPiece(const ScenePoint& from, const ScenePoint& to, double tolerance,
                  std::vector<ScenePoint>& out) {
  if (const std::optional<BulgeArc> arc = arcBetween(from, to)) {
    const double ratio = std::clamp(tolerance / arc->radius, 1e-9, 0.3);
    const double step = 2 * std::acos(1 - ratio);
    const int pieces = static_cast<int>(std::clamp(std::ceil(std::abs(arc->sweep) / step), 1.0, kMostPieces));
    for (int i = 1; i < pieces; ++i) out.push_back(arc->at(arc->start + arc->sweep * i / pieces));
  }
  out.push_back({to.x, to.y});
}

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

void flatten(std::span<const ScenePoint> points, bool closed, double tolerance, std::vector<ScenePoint>& to) {
  if (points.empty()) return;
  to.push_back({points[0].x, points[0].y});
  for (std::size_t i = 1; i < points.size(); ++i) flattenPiece(points[i - 1], points[i], tolerance, to);
  if (closed) flattenPiece(points.back(), points.front(), tolerance, to);
}

}  // namespace cad
