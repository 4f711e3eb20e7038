#pragma once
// Points and directions in the plane of a dimension. Angles are radians, counter-clockwise from the x axis.

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cad {

struct Vec {
  double x = 0, y = 0;
};

constexpr Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y}; }
constexpr Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
constexpr Vec operator-(Vec a) { return {-a.x, -a.y}; }
constexpr Vec operator*(double factor, Vec a) { return {factor * a.x, factor * a.y}; }

constexpr double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y; }
constexpr double cross(Vec a, Vec b) { return a.x * b.y - a.y * b.x; }
constexpr Vec leftOf(Vec a) { return {-a.y, a.x}; }  // turned by a quarter
inline double length(Vec a) { return std::hypot(a.x, a.y); }
inline double distance(Vec a, Vec b) { return length(a - b); }
inline double angleOf(Vec a) { return std::atan2(a.y, a.x); }
// Along an axis the other part is exactly 0: libraries differ in what they make of a quarter turn.
inline Vec direction(double angle) {
  constexpr double kNothing = 1e-15;
  const double x = std::cos(angle), y = std::sin(angle);
  return {std::abs(x) < kNothing ? 0 : x, std::abs(y) < kNothing ? 0 : y};
}
// (1, 0) for a vector without length.
inline Vec unit(Vec a) {
  const double size = length(a);
  return size > 0 ? (1 / size) * a : Vec{1, 0};
}

// Coordinates below it have products that are numbers.
inline constexpr double kLargest = 1e100;

// What is no distance from a point: the rounding of coordinates of its size.
inline double nearness(Vec point) { return 1e-9 * std::max({1.0, std::abs(point.x), std::abs(point.y)}); }

// Into [0, 2 pi).
inline double turn(double angle) {
  const double rest = std::fmod(angle, 2 * std::numbers::pi);
  return rest < 0 ? rest + 2 * std::numbers::pi : rest;
}

}  // namespace cad
