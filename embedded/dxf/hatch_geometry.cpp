// The boundary paths and the pattern of a hatch. Their groups mean what they do by their order alone.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "embedded/dxf/geometry_groups.h"

namespace cad::dxf {
namespace {

class PathReader {
 public:
  explicit PathReader(const GeometryGroups& groups) : groups_(groups) {
    while (!atEnd() && code() != kPaths) ++at_;
  }

  std::vector<HatchGeometry::Path> read() {
    std::vector<HatchGeometry::Path> paths;
    int count = atEnd() ? 0 : wholeIf(kPaths, 0);
    for (; count > 0 && !atEnd() && code() == kPathFlags; --count) {
      HatchGeometry::Path path;
      if ((wholeIf(kPathFlags, 0) & kPolylinePath) != 0) {
        path.edges.push_back(polyline());
      } else {
        readEdges(path);
      }
      skipToNextPath();
      if (!path.edges.empty()) paths.push_back(std::move(path));
    }
    return paths;
  }

 private:
  static constexpr int kPaths = 91, kPathFlags = 92, kPolylinePath = 2, kStyle = 75;

  bool atEnd() const { return at_ >= groups_.all().size(); }
  int code() const { return groups_.all()[at_].code; }
  double realIf(int wanted, double otherwise = 0) {
    return atEnd() || code() != wanted ? otherwise : groups_.value(groups_.all()[at_++]);
  }
  int wholeIf(int wanted, int otherwise) {
    return atEnd() || code() != wanted ? otherwise : groups_.whole(groups_.all()[at_++]);
  }
  Point pointIf(int wanted) {
    const double x = realIf(wanted);
    return {x, realIf(wanted + 10), 0};
  }
  // Counts stand in front of what they count; broken ones must not outrun the record.
  std::size_t countIf(int wanted) {
    const int count = wholeIf(wanted, 0);
    return std::min(static_cast<std::size_t>(std::max(count, 0)), groups_.all().size() - at_);
  }

  void skipToNextPath() {
    while (!atEnd() && code() != kPathFlags && code() != kStyle) ++at_;
  }

  PolylineGeometry polyline() {
    PolylineGeometry shape;
    const bool bulges = wholeIf(72, 0) != 0;
    shape.closed = wholeIf(73, 1) != 0;
    for (std::size_t count = countIf(93); count > 0 && !atEnd() && code() == 10; --count) {
      const Point at = pointIf(10);
      shape.vertices.push_back({at, bulges ? realIf(42) : 0});
    }
    return shape;
  }

  void readEdges(HatchGeometry::Path& path) {
    for (std::size_t count = countIf(93); count > 0 && !atEnd() && code() == 72; --count) {
      switch (wholeIf(72, 0)) {
        case 1: {
          const Point from = pointIf(10);
          path.edges.push_back(LineGeometry{from, pointIf(11)});
          break;
        }
        case 2:
          path.edges.push_back(arc());
          break;
        case 3:
          path.edges.push_back(ellipse());
          break;
        case 4:
          path.edges.push_back(spline());
          break;
        default:
          return;
      }
    }
  }

  // Angles of a clockwise edge are measured clockwise.
  void readAngles(double& start, double& end) {
    start = realIf(50);
    end = realIf(51, 360);
    if (wholeIf(73, 1) != 0) return;
    const double first = start;
    start = 360 - end;
    end = 360 - first;
  }

  ArcGeometry arc() {
    ArcGeometry shape;
    shape.centre = pointIf(10);
    shape.radius = realIf(40);
    readAngles(shape.start, shape.end);
    return shape;
  }

  EllipseGeometry ellipse() {
    EllipseGeometry shape;
    shape.centre = pointIf(10);
    shape.majorAxis = pointIf(11);
    shape.ratio = realIf(40, 1);
    readAngles(shape.start, shape.end);
    const auto parameter = [&](double degrees) {
      const double whole = std::floor(degrees / 360) * 2 * std::numbers::pi;
      const double angle = degrees * kRadiansPerDegree - whole;
      const double own = std::atan2(std::sin(angle), shape.ratio * std::cos(angle));
      return whole + (own < 0 ? own + 2 * std::numbers::pi : own);
    };
    if (shape.ratio > 0) {
      shape.start = parameter(shape.start);
      shape.end = parameter(shape.end);
    }
    return shape;
  }

  SplineGeometry spline() {
    SplineGeometry shape;
    shape.degree = wholeIf(94, 3);
    const bool rational = wholeIf(73, 0) != 0;
    shape.closed = wholeIf(74, 0) != 0;
    const std::size_t knots = countIf(95), control = countIf(96);
    for (std::size_t i = 0; i < knots && !atEnd() && code() == 40; ++i) shape.knots.push_back(realIf(40));
    for (std::size_t i = 0; i < control && !atEnd() && code() == 10; ++i) {
      shape.control.push_back(pointIf(10));
      if (rational) shape.weights.push_back(realIf(42, 1));
    }
    // Newer files tell fit points and tangents; the control points say the same.
    if (!atEnd() && code() == 97 && nextIs(11)) {
      ++at_;
      while (!atEnd() && code() >= 11 && code() <= 23) ++at_;
    }
    return shape;
  }

  bool nextIs(int wanted) const {
    return at_ + 1 < groups_.all().size() && groups_.all()[at_ + 1].code == wanted;
  }

  const GeometryGroups& groups_;
  std::size_t at_ = 0;
};

// Each family of lines begins with its angle, which no other part of a hatch tells by this code.
std::vector<HatchGeometry::Line> patternLines(const GeometryGroups& groups) {
  std::vector<HatchGeometry::Line> lines;
  for (const Group& group : groups.all()) {
    if (group.code == 53) lines.push_back({groups.value(group), {}, {}, {}});
    if (lines.empty()) continue;
    HatchGeometry::Line& line = lines.back();
    if (group.code == 43) line.base.x = groups.value(group);
    if (group.code == 44) line.base.y = groups.value(group);
    if (group.code == 45) line.offset.x = groups.value(group);
    if (group.code == 46) line.offset.y = groups.value(group);
    if (group.code == 49) line.dashes.push_back(groups.value(group));
  }
  return lines;
}

// Two or more colours, each with its place, its number and its value.
std::optional<std::int32_t> firstGradientColor(const GeometryGroups& groups) {
  if (groups.integer(450) == 0 || !groups.has(421)) return std::nullopt;
  return groups.integer(421) & 0xFFFFFF;
}

}  // namespace

Geometry readHatch(const GeometryGroups& groups) {
  HatchGeometry shape;
  shape.solid = groups.integer(70) != 0;
  shape.paths = PathReader(groups).read();
  if (!shape.solid) shape.lines = patternLines(groups);
  shape.gradient = firstGradientColor(groups);
  return {std::move(shape), groups.normal()};
}

}  // namespace cad::dxf
