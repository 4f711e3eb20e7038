#pragma once
// Plain geometry for blocks that the host itself makes (arrowheads). Drawing units, angles in degrees.

#include <variant>
#include <vector>

namespace cad {

struct Point {
  double x = 0, y = 0, z = 0;
};
struct LineShape {
  Point from, to;
};
struct CircleShape {
  Point centre;
  double radius = 0;
};
struct ArcShape {
  Point centre;
  double radius = 0, start = 0, end = 0;
};  // counter-clockwise
struct SolidShape {
  Point a, b, c, d;
};  // filled; corners in the order of a SOLID (c and d crossed)
struct PolylineShape {
  struct Vertex {
    double x = 0, y = 0, bulge = 0;
  };
  std::vector<Vertex> vertices;
  double width = 0;
  bool closed = false;
};
using Shape = std::variant<LineShape, CircleShape, ArcShape, SolidShape, PolylineShape>;

}  // namespace cad
