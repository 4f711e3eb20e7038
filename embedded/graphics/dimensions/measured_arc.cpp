#include "embedded/graphics/dimensions/measured_arc.h"

#include <algorithm>
#include <numbers>

namespace cad {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kSameAngle = 1e-9;

struct Ray {
  double angle = 0;
  MeasuredArc::Reach reach;
};

// The arc from one ray to the other, counter-clockwise; the other way round if it does not hold the point.
std::optional<MeasuredArc> arcBetween(Vec vertex, Ray from, Ray to, Vec on) {
  const double angle = angleOf(on - vertex);
  if (turn(angle - from.angle + kSameAngle) > turn(to.angle - from.angle) + 2 * kSameAngle)
    std::swap(from, to);
  MeasuredArc arc{
      vertex, distance(vertex, on), from.angle, turn(to.angle - from.angle), {from.reach, to.reach}};
  if (!(arc.radius > 0) || !(arc.sweep > kSameAngle)) return std::nullopt;
  return arc;
}

std::optional<MeasuredArc> arcByPoints(const DimFigure& figure) {
  const Vec vertex = figure.third;
  const auto rayTo = [&](Vec point) {
    const double away = distance(vertex, point);
    return Ray{angleOf(point - vertex), {away, away}};
  };
  const Ray first = rayTo(figure.first), second = rayTo(figure.second);
  if (first.reach.to == 0 || second.reach.to == 0) return std::nullopt;
  return arcBetween(vertex, first, second, figure.line);
}

// Of the four angles that two lines make the one that holds the point: never more than half a turn.
std::optional<MeasuredArc> arcBetweenLines(const DimFigure& figure) {
  const Vec one = figure.second - figure.first, other = figure.line - figure.third;
  const double across = cross(one, other);
  if (!(std::abs(across) > kSameAngle * length(one) * length(other))) return std::nullopt;
  const Vec vertex = figure.first + (cross(figure.third - figure.first, other) / across) * one;
  const Vec on = figure.arc - vertex;
  const auto rayOf = [&](Vec along, Vec a, Vec b, double side) {
    const bool isFar = dot(a + b - 2 * vertex, along) >= 0;  // the line lies ahead of the vertex
    // A point on the other line lies on neither side of this one: then the line itself counts.
    const bool isAhead = std::abs(side) > kSameAngle * length(on) ? side > 0 : isFar;
    const Vec ray = isAhead ? along : -along;
    const auto [from, to] = std::minmax({dot(a - vertex, ray), dot(b - vertex, ray)});
    return Ray{angleOf(ray), {from, to}};
  };
  const double sense = across > 0 ? 1 : -1;
  const Vec unitOne = unit(one), unitOther = unit(other);
  const Ray first = rayOf(unitOne, figure.first, figure.second, sense * cross(on, unitOther));
  const Ray second = rayOf(unitOther, figure.third, figure.line, sense * cross(unitOne, on));
  return arcBetween(vertex, first, second, figure.arc);
}

}  // namespace

double MeasuredArc::overChord(double length) const {
  return 2 * std::asin(std::min(length, radius) / 2 / radius);
}

double MeasuredArc::near(double angle) const { return middle() + std::remainder(angle - middle(), kTurn); }

bool MeasuredArc::holds(double nearAngle) const {
  return nearAngle >= start - kSameAngle && nearAngle <= end() + kSameAngle;
}

std::optional<MeasuredArc> measuredArc(const DimFigure& figure) {
  for (const Vec point : {figure.line, figure.first, figure.second, figure.third, figure.arc}) {
    if (!(length(point) < kLargest)) return std::nullopt;
  }
  return figure.kind == DimFigure::Kind::kAngular ? arcBetweenLines(figure) : arcByPoints(figure);
}

}  // namespace cad
