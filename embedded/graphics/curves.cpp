#include "embedded/graphics/curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cad {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kStep = kTurn / 72;  // of an ellipse's parameter
constexpr std::size_t kPiecesOfSpan = 12;
constexpr std::size_t kMostSpans = 20000;
constexpr int kMostDegree = 25;

double sweepOf(double start, double end) {
  double sweep = std::fmod(end - start, kTurn);
  if (sweep <= 0) sweep += kTurn;
  // Files round their angles: what misses a whole turn by no more than that is one.
  return sweep < 1e-9 || sweep > kTurn - 1e-9 ? kTurn : sweep;
}

// A point of a curve with its weight, by de Boor's recursion.
struct Weighted {
  double x = 0, y = 0, w = 1;
};

class Nurbs {
 public:
  explicit Nurbs(const SplineGeometry& spline)
      : degree_(static_cast<std::size_t>(std::clamp(spline.degree, 1, kMostDegree))) {
    const bool weighted = spline.weights.size() == spline.control.size();
    for (std::size_t i = 0; i < spline.control.size(); ++i) {
      const double w = weighted && spline.weights[i] > 0 ? spline.weights[i] : 1;
      control_.push_back({spline.control[i].x * w, spline.control[i].y * w, w});
    }
    degree_ = std::min(degree_, control_.size() - 1);
    knots_ = spline.knots;
    if (knots_.size() != control_.size() + degree_ + 1 || !std::ranges::is_sorted(knots_)) clampKnots();
  }

  std::vector<ScenePoint> points() const {
    std::vector<ScenePoint> out;
    const std::size_t last = std::min(control_.size(), degree_ + kMostSpans);
    for (std::size_t span = degree_; span < last; ++span) {
      const double from = knots_[span], to = knots_[span + 1];
      if (to <= from) continue;
      const std::size_t pieces = degree_ == 1 ? 1 : kPiecesOfSpan;
      for (std::size_t i = out.empty() ? 0 : 1; i <= pieces; ++i) {
        out.push_back(at(span, from + (to - from) * static_cast<double>(i) / static_cast<double>(pieces)));
      }
    }
    return out;
  }

 private:
  void clampKnots() {
    const std::size_t spans = control_.size() - degree_;
    knots_.assign(degree_ + 1, 0);
    for (std::size_t i = 1; i < spans; ++i) knots_.push_back(static_cast<double>(i));
    knots_.insert(knots_.end(), degree_ + 1, static_cast<double>(spans));
  }

  ScenePoint at(std::size_t span, double t) const {
    Weighted d[kMostDegree + 1];
    for (std::size_t j = 0; j <= degree_; ++j) d[j] = control_[span - degree_ + j];
    for (std::size_t r = 1; r <= degree_; ++r) {
      for (std::size_t j = degree_; j >= r; --j) {
        const double low = knots_[span - degree_ + j], high = knots_[span + 1 + j - r];
        const double share = high > low ? (t - low) / (high - low) : 0;
        const auto mix = [&](double a, double b) { return a + (b - a) * share; };
        d[j] = {mix(d[j - 1].x, d[j].x), mix(d[j - 1].y, d[j].y), mix(d[j - 1].w, d[j].w)};
      }
    }
    const Weighted& end = d[degree_];
    return {end.x / end.w, end.y / end.w};
  }

  std::size_t degree_;
  std::vector<Weighted> control_;
  std::vector<double> knots_;
};

// A smooth curve through points, for splines that are kept by their fit points alone.
std::vector<ScenePoint> through(const std::vector<Point>& fit, bool closed) {
  const std::size_t count = fit.size();
  const auto at = [&](std::ptrdiff_t index) -> const Point& {
    const std::ptrdiff_t size = static_cast<std::ptrdiff_t>(count);
    if (closed) return fit[static_cast<std::size_t>((index + size) % size)];
    return fit[static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(index, 0, size - 1))];
  };
  std::vector<ScenePoint> out;
  const std::size_t spans = std::min(closed ? count : count - 1, kMostSpans);
  for (std::size_t span = 0; span < spans; ++span) {
    const auto i = static_cast<std::ptrdiff_t>(span);
    const Point &a = at(i - 1), &b = at(i), &c = at(i + 1), &d = at(i + 2);
    for (std::size_t step = out.empty() ? 0 : 1; step <= kPiecesOfSpan; ++step) {
      const double t = static_cast<double>(step) / kPiecesOfSpan;
      const auto value = [t](double p0, double p1, double p2, double p3) {
        return p1 + 0.5 * t * (p2 - p0 + t * (2 * p0 - 5 * p1 + 4 * p2 - p3 + t * (3 * (p1 - p2) + p3 - p0)));
      };
      out.push_back({value(a.x, b.x, c.x, d.x), value(a.y, b.y, c.y, d.y)});
    }
  }
  return out;
}

}  // namespace

CurvePoints curveOf(const ArcGeometry& arc) {
  const double start = arc.start * kRadiansPerDegree;
  const double sweep = sweepOf(start, arc.end * kRadiansPerDegree);
  const auto at = [&](double angle) {
    return ScenePoint{arc.centre.x + arc.radius * std::cos(angle),
                      arc.centre.y + arc.radius * std::sin(angle)};
  };
  CurvePoints curve;
  curve.closed = sweep == kTurn;
  const int pieces = sweep > std::numbers::pi ? 2 : 1;
  const double bulge = std::tan(sweep / pieces / 4);
  for (int i = 0; i < pieces; ++i) {
    curve.points.push_back(at(start + sweep * i / pieces));
    curve.points.back().bulge = bulge;
  }
  if (!curve.closed) curve.points.push_back(at(start + sweep));
  return curve;
}

CurvePoints curveOf(const EllipseGeometry& ellipse, const Point& normal) {
  const double length = std::hypot(normal.x, normal.y, normal.z);
  const Point n =
      length == 0 ? Point{0, 0, 1} : Point{normal.x / length, normal.y / length, normal.z / length};
  const Point& major = ellipse.majorAxis;
  const ScenePoint minor{(n.y * major.z - n.z * major.y) * ellipse.ratio,
                         (n.z * major.x - n.x * major.z) * ellipse.ratio};
  const double sweep = sweepOf(ellipse.start, ellipse.end);
  CurvePoints curve;
  curve.closed = sweep == kTurn;
  const int pieces = std::max(2, static_cast<int>(std::ceil(sweep / kStep)));
  for (int i = 0; i < (curve.closed ? pieces : pieces + 1); ++i) {
    const double t = ellipse.start + sweep * i / pieces;
    curve.points.push_back({ellipse.centre.x + major.x * std::cos(t) + minor.x * std::sin(t),
                            ellipse.centre.y + major.y * std::cos(t) + minor.y * std::sin(t)});
  }
  return curve;
}

CurvePoints curveOf(const SplineGeometry& spline) {
  CurvePoints curve;
  curve.closed = spline.closed;
  if (spline.control.size() >= 2) {
    curve.points = Nurbs(spline).points();
  } else if (spline.fit.size() >= 2) {
    curve.points = through(spline.fit, spline.closed);
  }
  return curve;
}

CurvePoints curveOf(const PolylineGeometry& polyline) {
  CurvePoints curve;
  curve.closed = polyline.closed;
  curve.points.reserve(polyline.vertices.size());
  for (const PolylineGeometry::Vertex& vertex : polyline.vertices) {
    curve.points.push_back({vertex.at.x, vertex.at.y, vertex.bulge});
  }
  return curve;
}

}  // namespace cad
