// Polylines of both kinds, and the meshes that old files keep as polylines.

#include <algorithm>
#include <array>

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/mesh_wires.h"
#include "embedded/dxf/geometry_groups.h"

namespace cad::dxf {
namespace {

constexpr int kClosed = 1, kSpatial = 8, kMesh = 16, kClosedInN = 32, kFaces = 64;  // of a POLYLINE
constexpr int kControlPoint = 16, kFaceCorner = 64, kFacePart = 128;                // of a VERTEX

struct Vertex {
  PolylineGeometry::Vertex drawn;
  int flags = 0;
  MeshFace corners{};  // of a face
};

// Those without widths of their own have the polyline's.
std::vector<Vertex> verticesOf(const Drawing& drawing, const DxfStorage& storage, RecordId polyline,
                               double startWidth, double endWidth) {
  std::vector<Vertex> vertices;
  for (const RecordId part : drawing.subRecordsOf(polyline)) {
    if (drawing.record(part).erased() || drawing.typeName(part) != "VERTEX") continue;
    const GeometryGroups groups(storage, drawing.record(part));
    Vertex vertex;
    vertex.flags = groups.integer(70);
    if ((vertex.flags & kControlPoint) != 0) continue;
    vertex.drawn = {groups.point(10), groups.real(42), groups.real(40, startWidth),
                    groups.real(41, endWidth)};
    for (int corner = 0; corner < 4; ++corner) {
      vertex.corners[static_cast<std::size_t>(corner)] = groups.integer(71 + corner);
    }
    vertices.push_back(vertex);
  }
  return vertices;
}

MeshGrid gridOf(const GeometryGroups& groups) {
  const int flags = groups.integer(70);
  const bool smooth = groups.integer(75) != 0;
  const auto count = [&](int plain, int dense) {
    return static_cast<std::size_t>(std::max(0, groups.integer(smooth ? dense : plain)));
  };
  return {count(71, 73), count(72, 74), (flags & kClosed) != 0, (flags & kClosedInN) != 0};
}

MeshGeometry gridOfVertices(const std::vector<Vertex>& vertices, const GeometryGroups& groups) {
  std::vector<Point> points;
  for (const Vertex& vertex : vertices) points.push_back(vertex.drawn.at);
  return gridWires(points, gridOf(groups));
}

MeshGeometry facesOfVertices(const std::vector<Vertex>& vertices) {
  std::vector<Point> corners;
  std::vector<MeshFace> faces;
  for (const Vertex& vertex : vertices) {
    if ((vertex.flags & kFaceCorner) != 0) {
      corners.push_back(vertex.drawn.at);
    } else if ((vertex.flags & kFacePart) != 0) {
      faces.push_back(vertex.corners);
    }
  }
  return faceWires(corners, faces);
}

}  // namespace

Geometry readPolyline(const Drawing& drawing, const DxfStorage& storage, RecordId polyline) {
  const GeometryGroups groups(storage, drawing.record(polyline));
  const int flags = groups.integer(70);
  std::vector<Vertex> vertices = verticesOf(drawing, storage, polyline, groups.real(40), groups.real(41));
  if ((flags & kMesh) != 0) return {gridOfVertices(vertices, groups)};
  if ((flags & kFaces) != 0) return {facesOfVertices(vertices)};
  PolylineGeometry shape;
  shape.closed = (flags & kClosed) != 0;
  const bool spatial = (flags & kSpatial) != 0;
  for (Vertex& vertex : vertices) {
    if (!spatial) vertex.drawn.at.z = groups.real(30);
    shape.vertices.push_back(vertex.drawn);
  }
  return {std::move(shape), spatial ? Point{0, 0, 1} : groups.normal()};
}

Geometry readLightPolyline(const GeometryGroups& groups) {
  PolylineGeometry shape;
  shape.closed = (groups.integer(70) & kClosed) != 0;
  const double elevation = groups.real(38);
  const double width = groups.real(43);
  bool wide = false;
  for (const Group& group : groups.all()) {
    if (group.code == 40 || group.code == 41 || group.code == 43) wide = wide || groups.value(group) != 0;
    if (group.code == 10) shape.vertices.push_back({{groups.value(group), 0, elevation}, 0, width, width});
    if (shape.vertices.empty()) continue;
    if (group.code == 40) shape.vertices.back().startWidth = groups.value(group);
    if (group.code == 41) shape.vertices.back().endWidth = groups.value(group);
    if (group.code == 20) shape.vertices.back().at.y = groups.value(group);
    if (group.code == 42) shape.vertices.back().bulge = groups.value(group);
  }
  return {.shape = std::move(shape), .normal = groups.normal(), .partial = wide};
}

Geometry readFace(const GeometryGroups& groups) {
  const Point third = groups.point(12);
  const std::array<Point, 4> corners{groups.point(10), groups.point(11), third, groups.point(13, third)};
  const int hidden = groups.integer(70);
  MeshGeometry mesh;
  for (std::size_t i = 0; i < 4; ++i) {
    if ((hidden >> i & 1) == 0) mesh.wires.push_back({corners[i], corners[(i + 1) % 4]});
  }
  return {std::move(mesh)};
}

}  // namespace cad::dxf
