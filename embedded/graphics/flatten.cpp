#include <algorithm>
#include <cmath>

#include "embedded/graphics/bulge_arc.h"
#include "embedded/graphics/scene.h"

namespace cad {
namespace {

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

void flatten(std::span<const ScenePoint> points, bool closed, double tolerance, std::vector<ScenePoint>& to) {
  if (points.empty()) return;
  to.push_back({points[0].x, points[0].y});
  for (std::size_t i = 1; i < points.size(); ++i) flattenPiece(points[i - 1], points[i], tolerance, to);
  if (closed) flattenPiece(points.back(), points.front(), tolerance, to);
}

}  // namespace cad
