// Polylines of both kinds, and the meshes that old files keep as polylines.

#include <algorithm>
#include <array>

#include "embedded/drawing/mesh_wires.h"
#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

constexpr std::int64_t kClosed = 1, kClosedInN = 32;  // of a POLYLINE
constexpr std::int64_t kControlPoint = 16;            // of a VERTEX
constexpr std::int64_t kLightClosed = 512;            // of an LWPOLYLINE

struct Vertex {
  PolylineGeometry::Vertex drawn;
  bool isFace = false;
  MeshFace corners{};
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

std::vector<Point> pointsOf(const std::vector<Vertex>& vertices) {
  std::vector<Point> points;
  for (const Vertex& vertex : vertices)
    if (!vertex.isFace) points.push_back(vertex.drawn.at);
  return points;
}

MeshGrid gridOf(const Fields& fields) {
  const std::int64_t flags = fields.integer("flags");
  const bool smooth = fields.integer("curve type") != 0;
  const auto count = [&](std::string_view plain, std::string_view dense) {
    return static_cast<std::size_t>(std::max<std::int64_t>(0, fields.integer(smooth ? dense : plain)));
  };
  return {count("m vertices", "m density"), count("n vertices", "n density"), (flags & kClosed) != 0,
          (flags & kClosedInN) != 0};
}

std::vector<MeshFace> facesOf(const std::vector<Vertex>& vertices) {
  std::vector<MeshFace> faces;
  for (const Vertex& vertex : vertices)
    if (vertex.isFace) faces.push_back(vertex.corners);
  return faces;
}

}  // namespace

Geometry readPolyline(const GeometrySource& from) {
  std::vector<Vertex> vertices = verticesOf(from);
  if (from.kind == ObjectKind::kPolylineMesh) return {gridWires(pointsOf(vertices), gridOf(from.fields))};
  if (from.kind == ObjectKind::kPolylinePface) return {faceWires(pointsOf(vertices), facesOf(vertices))};
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
