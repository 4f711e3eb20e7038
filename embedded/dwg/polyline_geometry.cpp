// Polylines of both kinds, and the meshes that old files keep as polylines.

#include <algorithm>
#include <array>
#include <cstdlib>

#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kClosed = 1, kClosedInN = 32;  // of a POLYLINE
constexpr std::int64_t kControlPoint = 16;            // of a VERTEX
constexpr std::int64_t kLightClosed = 512;            // of an LWPOLYLINE

struct Vertex {
  PolylineGeometry::Vertex drawn;
  bool isFace = false;
  std::array<std::int64_t, 4> corners{};  // numbers from 1; below 0: the edge that begins there is hidden
};

PolylineGeometry::Vertex drawnVertex(const Fields& fields, double startWidth, double endWidth) {
  // A width below 0 stands for both.
  double start = fields.real("start width"), end = fields.real("end width");
  if (start < 0) start = end = -start;
  if (start == 0 && end == 0) start = startWidth, end = endWidth;
  return {fields.point("point"), fields.real("bulge"), start, end};
}

// Those without widths of their own have the polyline's.
std::vector<Vertex> verticesOf(const GeometrySource& from) {
  const double startWidth = from.fields.real("start width"), endWidth = from.fields.real("end width");
  std::vector<Vertex> vertices;
  for (const RecordId part : from.drawing.subRecordsOf(from.id)) {
    if (from.drawing.record(part).erased() || from.drawing.typeName(part) != "VERTEX") continue;
    const Fields& fields = from.storage.fields(from.drawing.record(part));
    Vertex vertex;
    vertex.isFace = from.storage.typeOf(from.drawing.record(part)).kind == ObjectKind::kVertexPfaceFace;
    if (!vertex.isFace && (fields.integer("flags") & kControlPoint) != 0) continue;
    vertex.drawn = drawnVertex(fields, startWidth, endWidth);
    for (std::uint32_t i = 0; vertex.isFace && i < 4; ++i)
      vertex.corners[i] = fields.integer("face vertex", 0, i);
    vertices.push_back(vertex);
  }
  return vertices;
}

MeshGeometry meshOf(const GeometrySource& from, const std::vector<Vertex>& vertices) {
  const std::int64_t flags = from.fields.integer("flags");
  const bool smooth = from.fields.integer("curve type") != 0;
  const auto count = [&](std::string_view plain, std::string_view dense) {
    return static_cast<std::size_t>(std::max<std::int64_t>(0, from.fields.integer(smooth ? dense : plain)));
  };
  const std::size_t m = count("m vertices", "m density"), n = count("n vertices", "n density");
  MeshGeometry mesh;
  if (n == 0 || m == 0 || vertices.size() / n < m) return mesh;
  const auto add = [&](std::size_t first, std::size_t step, std::size_t number, bool closed) {
    std::vector<Point> wire;
    for (std::size_t i = 0; i < number; ++i) wire.push_back(vertices[first + i * step].drawn.at);
    if (closed) wire.push_back(wire.front());
    mesh.wires.push_back(std::move(wire));
  };
  for (std::size_t row = 0; row < m; ++row) add(row * n, 1, n, (flags & kClosedInN) != 0);
  for (std::size_t column = 0; column < n; ++column) add(column, n, m, (flags & kClosed) != 0);
  return mesh;
}

MeshGeometry facesOf(const std::vector<Vertex>& vertices) {
  std::vector<Point> corners;
  for (const Vertex& vertex : vertices)
    if (!vertex.isFace) corners.push_back(vertex.drawn.at);
  const auto at = [&](std::int64_t number) -> const Point* {
    const auto index = static_cast<std::size_t>(std::abs(number));
    return index == 0 || index > corners.size() ? nullptr : &corners[index - 1];
  };
  MeshGeometry mesh;
  for (const Vertex& face : vertices) {
    if (!face.isFace) continue;
    std::size_t used = 4;
    while (used > 0 && face.corners[used - 1] == 0) --used;
    for (std::size_t i = 0; i < used; ++i) {
      const Point* begin = at(face.corners[i]);
      const Point* end = at(face.corners[(i + 1) % used]);
      if (face.corners[i] > 0 && begin != nullptr && end != nullptr) mesh.wires.push_back({*begin, *end});
    }
  }
  return mesh;
}

}  // namespace

Geometry readPolyline(const GeometrySource& from) {
  std::vector<Vertex> vertices = verticesOf(from);
  if (from.kind == ObjectKind::kPolylineMesh) return {meshOf(from, vertices)};
  if (from.kind == ObjectKind::kPolylinePface) return {facesOf(vertices)};
  PolylineGeometry shape;
  shape.closed = (from.fields.integer("flags") & kClosed) != 0;
  const bool spatial = from.kind == ObjectKind::kPolyline3d;
  for (Vertex& vertex : vertices) {
    if (!spatial) vertex.drawn.at.z = from.fields.real("elevation");
    shape.vertices.push_back(vertex.drawn);
  }
  return {std::move(shape), spatial ? Point{0, 0, 1} : from.normal()};
}

Geometry readLightPolyline(const GeometrySource& from) {
  const Fields& fields = from.fields;
  PolylineGeometry shape;
  shape.closed = (fields.integer("flags") & kLightClosed) != 0;
  const double elevation = fields.real("elevation"), width = fields.real("constant width");
  bool wide = width != 0;
  for (const Field& field : fields.all()) {
    if (field.name == "vertex") {
      const Point at = std::get<Point>(field.value);
      shape.vertices.push_back({{at.x, at.y, elevation}, 0, width, width});
    }
    const auto* real = std::get_if<double>(&field.value);
    if (real == nullptr || field.index >= shape.vertices.size()) continue;
    PolylineGeometry::Vertex& vertex = shape.vertices[field.index];
    if (field.name == "bulge") vertex.bulge = *real;
    if (field.name == "start width") vertex.startWidth = *real, wide = wide || *real != 0;
    if (field.name == "end width") vertex.endWidth = *real, wide = wide || *real != 0;
  }
  return {.shape = std::move(shape), .normal = from.normal(), .partial = wide};
}

Geometry readFace(const GeometrySource& from) {
  std::array<Point, 4> corners;
  for (std::uint32_t i = 0; i < 4; ++i) corners[i] = from.fields.point("corner", {}, i);
  const std::int64_t hidden = from.fields.integer("edge flags");
  MeshGeometry mesh;
  for (std::size_t i = 0; i < 4; ++i) {
    if ((hidden >> i & 1) == 0) mesh.wires.push_back({corners[i], corners[(i + 1) % 4]});
  }
  return {std::move(mesh)};
}

}  // namespace cad::dwg
