// Polylines of both kinds, and the meshes that old files keep as polylines.

#include <algorithm>
#include <array>
#include <cstdlib>

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/geometry_groups.h"

namespace cad::dxf {
namespace {

constexpr int kClosed = 1, kSpatial = 8, kMesh = 16, kClosedInN = 32, kFaces = 64;  // of a POLYLINE
constexpr int kControlPoint = 16, kFaceCorner = 64, kFacePart = 128;                // of a VERTEX

struct Vertex {
  PolylineGeometry::Vertex drawn;
  int flags = 0;
  std::array<int, 4>
      corners{};  // of a face: numbers from 1; below 0 when the edge that begins there is hidden
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

MeshGeometry meshOf(const std::vector<Vertex>& vertices, const GeometryGroups& groups) {
  const int flags = groups.integer(70);
  const bool smooth = groups.integer(75) != 0;
  const auto count = [&](int plain, int dense) {
    return static_cast<std::size_t>(std::max(0, groups.integer(smooth ? dense : plain)));
  };
  const std::size_t m = count(71, 73), n = count(72, 74);
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
    if ((vertex.flags & kFaceCorner) != 0) corners.push_back(vertex.drawn.at);
  const auto at = [&](int number) -> const Point* {
    const std::size_t index = static_cast<std::size_t>(std::abs(static_cast<long>(number)));
    return index == 0 || index > corners.size() ? nullptr : &corners[index - 1];
  };
  MeshGeometry mesh;
  for (const Vertex& face : vertices) {
    if ((face.flags & kFacePart) == 0 || (face.flags & kFaceCorner) != 0) continue;
    std::size_t used = 4;
    while (used > 0 && face.corners[used - 1] == 0) --used;
    for (std::size_t i = 0; i < used; ++i) {
      const Point* from = at(face.corners[i]);
      const Point* to = at(face.corners[(i + 1) % used]);
      if (face.corners[i] > 0 && from != nullptr && to != nullptr) mesh.wires.push_back({*from, *to});
    }
  }
  return mesh;
}

}  // namespace

Geometry readPolyline(const Drawing& drawing, const DxfStorage& storage, RecordId polyline) {
  const GeometryGroups groups(storage, drawing.record(polyline));
  const int flags = groups.integer(70);
  std::vector<Vertex> vertices = verticesOf(drawing, storage, polyline, groups.real(40), groups.real(41));
  if ((flags & kMesh) != 0) return {meshOf(vertices, groups)};
  if ((flags & kFaces) != 0) return {facesOf(vertices)};
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
