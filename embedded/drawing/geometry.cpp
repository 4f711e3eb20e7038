#include "embedded/drawing/geometry.h"

#include <cmath>

namespace cad {
namespace {

Point cross(const Point& a, const Point& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const Point& a, const Point& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

Point unit(const Point& of) {
  const double length = std::hypot(of.x, of.y, of.z);
  return length == 0 ? Point{0, 0, 1} : Point{of.x / length, of.y / length, of.z / length};
}

}  // namespace

Axes axesOf(const Point& normal) {
  const Point z = unit(normal);
  // The arbitrary axis rule of the drawing format.
  constexpr double kNearPole = 1.0 / 64;
  const bool nearPole = std::abs(z.x) < kNearPole && std::abs(z.y) < kNearPole;
  const Point x = unit(cross(nearPole ? Point{0, 1, 0} : Point{0, 0, 1}, z));
  return {x, unit(cross(z, x)), z};
}

Point Axes::world(const Point& own) const {
  return {own.x * x.x + own.y * y.x + own.z * z.x, own.x * x.y + own.y * y.y + own.z * z.y,
          own.x * x.z + own.y * y.z + own.z * z.z};
}

Point Axes::own(const Point& world) const { return {dot(world, x), dot(world, y), dot(world, z)}; }

}  // namespace cad
