#include "embedded/graphics/hit_test.h"

#include <algorithm>
#include <cmath>

#include "embedded/graphics/bulge_arc.h"

namespace cad {
namespace {

constexpr double kFar = std::numeric_limits<double>::infinity();

double distanceToPiece(const ScenePoint& from, const ScenePoint& to, double x, double y) {
  if (const std::optional<BulgeArc> arc = arcBetween(from, to)) {
    const double dx = x - arc->x, dy = y - arc->y;
    if (arc->covers(std::atan2(dy, dx))) return std::abs(std::hypot(dx, dy) - arc->radius);
    return std::min(std::hypot(x - from.x, y - from.y), std::hypot(x - to.x, y - to.y));
  }
  const double dx = to.x - from.x, dy = to.y - from.y, square = dx * dx + dy * dy;
  const double along =
      square == 0 ? 0 : std::clamp(((x - from.x) * dx + (y - from.y) * dy) / square, 0.0, 1.0);
  return std::hypot(x - from.x - along * dx, y - from.y - along * dy);
}

// Crossings of a ray to the right with straight pieces.
bool crosses(const ScenePoint& a, const ScenePoint& b, double x, double y) {
  if ((a.y > y) == (b.y > y)) return false;
  return a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x) > x;
}

bool isInside(const Scene& scene, const SceneItem& item, double x, double y) {
  bool inside = false;
  std::vector<ScenePoint> outline;
  for (const SceneLoop& loop : scene.loopsOf(item)) {
    outline.clear();
    flatten(scene.pointsOf(loop), true, finenessOf(scene.pointsOf(loop)), outline);
    for (std::size_t i = 1; i < outline.size(); ++i) {
      if (crosses(outline[i - 1], outline[i], x, y)) inside = !inside;
    }
  }
  return inside;
}

double distanceToText(const SceneText& text, double x, double y) {
  const double area = text.along.x * text.up.y - text.along.y * text.up.x;
  const double dx = x - text.origin.x, dy = y - text.origin.y;
  if (area != 0) {
    const double a = (dx * text.up.y - dy * text.up.x) / area,
                 u = (text.along.x * dy - text.along.y * dx) / area;
    if (a >= 0 && a <= 1 && u >= 0 && u <= 1) return 0;
  }
  const ScenePoint& o = text.origin;
  const ScenePoint corners[] = {{o.x, o.y},
                                {o.x + text.along.x, o.y + text.along.y},
                                {o.x + text.along.x + text.up.x, o.y + text.along.y + text.up.y},
                                {o.x + text.up.x, o.y + text.up.y}};
  return distanceTo(corners, true, x, y);
}

double distanceToItem(const Scene& scene, const SceneItem& item, double x, double y, double tolerance) {
  double nearest = kFar;
  if (item.kind == SceneItemKind::kText) {
    for (const SceneText& text : scene.textsOf(item)) nearest = std::min(nearest, distanceToText(text, x, y));
    return nearest;
  }
  const bool fill = item.kind == SceneItemKind::kFill;
  for (const SceneLoop& loop : scene.loopsOf(item)) {
    nearest = std::min(nearest, distanceTo(scene.pointsOf(loop), loop.closed || fill, x, y));
  }
  if (fill && nearest > tolerance && isInside(scene, item, x, y)) return tolerance;
  return nearest;
}

}  // namespace

double distanceTo(std::span<const ScenePoint> points, bool closed, double x, double y) {
  if (points.empty()) return kFar;
  double nearest = std::hypot(x - points[0].x, y - points[0].y);
  for (std::size_t i = 1; i < points.size(); ++i) {
    nearest = std::min(nearest, distanceToPiece(points[i - 1], points[i], x, y));
  }
  if (closed) nearest = std::min(nearest, distanceToPiece(points.back(), points.front(), x, y));
  return nearest;
}

RecordId hitTest(const Scene& scene, double x, double y, double tolerance) {
  RecordId found = kNoRecord;
  double nearest = tolerance;
  for (const SceneItem& item : scene.items) {
    if (!item.box.contains(x, y, tolerance)) continue;
    const double distance = distanceToItem(scene, item, x, y, tolerance);
    if (distance > nearest) continue;
    nearest = distance;
    found = item.entity;
  }
  return found;
}

}  // namespace cad
