#include "embedded/dwg/fit_spline.h"

#include <cmath>

namespace cad::dwg {
namespace {

Point sum(const Point& a, const Point& b, double factor) {
  return {a.x + factor * b.x, a.y + factor * b.y, a.z + factor * b.z};
}

Point difference(const Point& a, const Point& b) { return sum(a, b, -1); }

Point scaled(const Point& a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }

bool hasLength(const Point& a) { return a.x != 0 || a.y != 0 || a.z != 0; }

std::vector<double> stepsOf(const FitPoints& fit) {
  std::vector<double> steps;
  for (std::size_t i = 0; i + 1 < fit.points.size(); ++i) {
    const Point chord = difference(fit.points[i + 1], fit.points[i]);
    const double length = std::hypot(chord.x, chord.y, chord.z);
    if (!(length > 0)) return {};
    steps.push_back(fit.steps == FitSteps::kEven          ? 1
                    : fit.steps == FitSteps::kRootOfChord ? std::sqrt(length)
                                                          : length);
  }
  return steps;
}

// One equation for the derivative at each point, of its own and both neighbours'.
struct Row {
  double before = 0, own = 1, behind = 0;
  Point right;
};

Row endRow(const Point& tangent, const Point& chord, double step, bool isFirst) {
  if (hasLength(tangent)) return {.right = tangent};
  Row row{.own = 2, .right = scaled(chord, 3 / step)};
  (isFirst ? row.behind : row.before) = 1;
  return row;
}

std::vector<Row> rowsOf(const FitPoints& fit, const std::vector<double>& steps) {
  const std::vector<Point>& at = fit.points;
  const std::size_t last = steps.size();
  std::vector<Row> rows;
  rows.push_back(endRow(fit.startTangent, difference(at[1], at[0]), steps[0], true));
  for (std::size_t i = 1; i < last; ++i) {
    const double left = steps[i - 1], right = steps[i];
    const Point slopes = sum(scaled(difference(at[i], at[i - 1]), 3 * right / left),
                             difference(at[i + 1], at[i]), 3 * left / right);
    rows.push_back({right, 2 * (left + right), left, slopes});
  }
  rows.push_back(endRow(fit.endTangent, difference(at[last], at[last - 1]), steps[last - 1], false));
  return rows;
}

// The derivatives for which curvature does not jump.
std::vector<Point> derivatives(std::vector<Row> rows) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    const double factor = rows[i].before / rows[i - 1].own;
    rows[i].own -= factor * rows[i - 1].behind;
    rows[i].right = sum(rows[i].right, rows[i - 1].right, -factor);
  }
  std::vector<Point> found(rows.size());
  Point next;
  for (std::size_t i = rows.size(); i-- > 0;) {
    next = scaled(sum(rows[i].right, next, -rows[i].behind), 1 / rows[i].own);
    found[i] = next;
  }
  return found;
}

}  // namespace

SplineGeometry splineThrough(const FitPoints& fit) {
  constexpr std::size_t kDegree = 3;
  SplineGeometry spline;
  const std::vector<double> steps = stepsOf(fit);
  if (steps.empty()) return spline;
  const std::vector<Point> slopes = derivatives(rowsOf(fit, steps));
  const std::vector<Point>& at = fit.points;
  const std::size_t last = steps.size();
  // The two inner points of a piece as a curve of its own.
  const auto behind = [&](std::size_t i) { return sum(at[i], slopes[i], steps[i] / kDegree); };
  const auto before = [&](std::size_t i) { return sum(at[i], slopes[i], -steps[i - 1] / kDegree); };
  spline.control = {at[0], behind(0)};
  spline.knots.assign(kDegree + 1, 0);
  double knot = 0;
  for (std::size_t i = 1; i < last; ++i) {
    const Point from = behind(i);
    spline.control.push_back(sum(from, difference(before(i + 1), from), -steps[i - 1] / steps[i]));
    spline.knots.push_back(knot += steps[i - 1]);
  }
  spline.control.push_back(before(last));
  spline.control.push_back(at[last]);
  spline.knots.insert(spline.knots.end(), kDegree + 1, knot + steps[last - 1]);
  return spline;
}

}  // namespace cad::dwg
