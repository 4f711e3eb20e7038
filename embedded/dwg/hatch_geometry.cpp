// The boundary paths and the pattern of a hatch.

#include <cmath>
#include <numbers>

#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kPolylinePath = 2;
constexpr std::int64_t kLine = 1, kArc = 2, kEllipse = 3;

double realOf(const Field& field) {
  const auto* real = std::get_if<double>(&field.value);
  return real == nullptr ? 0 : *real;
}
std::int64_t wholeOf(const Field& field) {
  const auto* whole = std::get_if<std::int64_t>(&field.value);
  return whole == nullptr ? 0 : *whole;
}
Point pointOf(const Field& field) {
  const auto* point = std::get_if<Point>(&field.value);
  return point == nullptr ? Point{} : *point;
}

// Angles of a clockwise edge are measured clockwise.
void turnRound(double& start, double& end) {
  const double first = start;
  start = 360 - end;
  end = 360 - first;
}

// The parameter of an ellipse at an angle in degrees.
double parameterAt(double degrees, double ratio) {
  const double whole = std::floor(degrees / 360) * 2 * std::numbers::pi;
  const double angle = degrees * kRadiansPerDegree - whole;
  const double own = std::atan2(std::sin(angle), ratio * std::cos(angle));
  return whole + (own < 0 ? own + 2 * std::numbers::pi : own);
}

// Takes a hatch's fields one after another.
class PathReader {
 public:
  void take(const Field& field) {
    if (field.name == "path flags") return beginPath((wholeOf(field) & kPolylinePath) != 0);
    if (paths_.empty()) return;
    if (field.name == "segment type") return beginEdge(wholeOf(field));
    if (!paths_.back().edges.empty())
      std::visit([&](auto& edge) { add(edge, field); }, paths_.back().edges.back());
  }
  std::vector<HatchGeometry::Path> finish() {
    std::erase_if(paths_, [](const HatchGeometry::Path& path) { return path.edges.empty(); });
    return std::move(paths_);
  }

 private:
  void beginPath(bool polyline) {
    paths_.emplace_back();
    if (polyline) paths_.back().edges.push_back(PolylineGeometry{.vertices = {}, .closed = true});
  }

  void beginEdge(std::int64_t type) {
    auto& edges = paths_.back().edges;
    if (type == kLine) {
      edges.push_back(LineGeometry{});
    } else if (type == kArc) {
      edges.push_back(ArcGeometry{});
    } else if (type == kEllipse) {
      edges.push_back(EllipseGeometry{});
    } else {
      edges.push_back(SplineGeometry{});
    }
  }

  static void add(LineGeometry& line, const Field& field) {
    if (field.name == "from") line.from = pointOf(field);
    if (field.name == "to") line.to = pointOf(field);
  }
  static void add(ArcGeometry& arc, const Field& field) {
    if (field.name == "center") arc.centre = pointOf(field);
    if (field.name == "radius") arc.radius = realOf(field);
    if (field.name == "start") arc.start = realOf(field) / kRadiansPerDegree;
    if (field.name == "end") arc.end = realOf(field) / kRadiansPerDegree;
    if (field.name == "counterclockwise" && wholeOf(field) == 0) turnRound(arc.start, arc.end);
  }
  static void add(EllipseGeometry& ellipse, const Field& field) {
    if (field.name == "center") ellipse.centre = pointOf(field);
    if (field.name == "major axis") ellipse.majorAxis = pointOf(field);
    if (field.name == "ratio") ellipse.ratio = realOf(field);
    if (field.name == "start") ellipse.start = realOf(field) / kRadiansPerDegree;
    if (field.name == "end") ellipse.end = realOf(field) / kRadiansPerDegree;
    if (field.name != "counterclockwise") return;
    if (wholeOf(field) == 0) turnRound(ellipse.start, ellipse.end);
    if (ellipse.ratio <= 0) return;
    ellipse.start = parameterAt(ellipse.start, ellipse.ratio);
    ellipse.end = parameterAt(ellipse.end, ellipse.ratio);
  }
  static void add(SplineGeometry& spline, const Field& field) {
    if (field.name == "degree") spline.degree = static_cast<int>(wholeOf(field));
    if (field.name == "periodic") spline.closed = wholeOf(field) != 0;
    if (field.name == "knot") spline.knots.push_back(realOf(field));
    if (field.name == "control point") spline.control.push_back(pointOf(field));
    if (field.name == "weight") spline.weights.push_back(realOf(field));
  }
  static void add(PolylineGeometry& polyline, const Field& field) {
    if (field.name == "closed") polyline.closed = wholeOf(field) != 0;
    if (field.name == "point") polyline.vertices.push_back({pointOf(field), 0});
    if (field.name == "bulge" && !polyline.vertices.empty()) polyline.vertices.back().bulge = realOf(field);
  }

  std::vector<HatchGeometry::Path> paths_;
};

void addToPattern(std::vector<HatchGeometry::Line>& lines, const Field& field) {
  if (field.name == "line angle") lines.push_back({realOf(field) / kRadiansPerDegree, {}, {}, {}});
  if (lines.empty()) return;
  if (field.name == "line base") lines.back().base = pointOf(field);
  if (field.name == "line offset") lines.back().offset = pointOf(field);
  if (field.name == "dash") lines.back().dashes.push_back(realOf(field));
}

}  // namespace

Geometry readHatch(const GeometrySource& from) {
  HatchGeometry shape;
  shape.solid = from.fields.integer("solid") != 0;
  PathReader paths;
  bool inPaths = true;
  for (const Field& field : from.fields.all()) {
    inPaths = inPaths && field.name != "style";
    if (inPaths)
      paths.take(field);
    else
      addToPattern(shape.lines, field);
  }
  shape.paths = paths.finish();
  if (from.fields.integer("gradient") != 0) shape.gradient = from.fields.color("gradient color").rgb;
  return {std::move(shape), from.normal()};
}

}  // namespace cad::dwg
