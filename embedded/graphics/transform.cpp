#include "embedded/graphics/transform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cad {

ScenePoint Transform::point(const ScenePoint& at) const {
  return {xx * at.x + yx * at.y + x0, xy * at.x + yy * at.y + y0, at.bulge};
}

ScenePoint Transform::vector(const ScenePoint& of) const {
  return {xx * of.x + yx * of.y, xy * of.x + yy * of.y};
}

Transform Transform::after(const Transform& first) const {
  const ScenePoint x = vector({first.xx, first.xy}), y = vector({first.yx, first.yy});
  const ScenePoint shift = point({first.x0, first.y0});
  return {x.x, x.y, y.x, y.y, shift.x, shift.y};
}

bool Transform::keepsCircles() const {
  const double a = xx * xx + xy * xy, b = yx * yx + yy * yy, dot = xx * yx + xy * yy;
  constexpr double kSame = 1e-9;
  return std::abs(a - b) <= kSame * std::max(a, b) && std::abs(dot) <= kSame * std::max(a, b);
}

Transform planView(const Point& normal, double elevation) {
  const Axes axes = axesOf(normal);
  return {axes.x.x, axes.x.y, axes.y.x, axes.y.y, axes.z.x * elevation, axes.z.y * elevation};
}

Transform placement(const InsertGeometry& insert, const Point& normal, const Point& base, int column,
                    int row) {
  const double angle = insert.rotation * kRadiansPerDegree;
  const double cosine = std::cos(angle), sine = std::sin(angle);
  const double dx = column * insert.columnSpacing, dy = row * insert.rowSpacing;
  const Transform turned{cosine,
                         sine,
                         -sine,
                         cosine,
                         insert.at.x + dx * cosine - dy * sine,
                         insert.at.y + dx * sine + dy * cosine};
  const Transform scaled{insert.scale.x,          0, 0, insert.scale.y, -base.x * insert.scale.x,
                         -base.y * insert.scale.y};
  return planView(normal, insert.at.z).after(turned.after(scaled));
}

}  // namespace cad
