#include "embedded/drawing/mesh_wires.h"

#include <utility>

namespace cad {

MeshGeometry gridWires(std::span<const Point> vertices, const MeshGrid& grid) {
  MeshGeometry mesh;
  if (grid.n == 0 || grid.m == 0 || vertices.size() / grid.n < grid.m) return mesh;
  const auto add = [&](std::size_t first, std::size_t step, std::size_t number, bool closed) {
    std::vector<Point> wire;
    for (std::size_t i = 0; i < number; ++i) wire.push_back(vertices[first + i * step]);
    if (closed) wire.push_back(wire.front());
    mesh.wires.push_back(std::move(wire));
  };
  for (std::size_t row = 0; row < grid.m; ++row) add(row * grid.n, 1, grid.n, grid.closedInN);
  for (std::size_t column = 0; column < grid.n; ++column) add(column, grid.n, grid.m, grid.closedInM);
  return mesh;
}

MeshGeometry faceWires(std::span<const Point> corners, std::span<const MeshFace> faces) {
  const auto at = [&](std::int64_t number) -> const Point* {
    const auto index = number < 0 ? -static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    return index == 0 || index > corners.size() ? nullptr : &corners[index - 1];
  };
  MeshGeometry mesh;
  for (const MeshFace& face : faces) {
    std::size_t used = face.size();
    while (used > 0 && face[used - 1] == 0) --used;
    for (std::size_t i = 0; i < used; ++i) {
      const Point* from = at(face[i]);
      const Point* to = at(face[(i + 1) % used]);
      if (face[i] > 0 && from != nullptr && to != nullptr) mesh.wires.push_back({*from, *to});
    }
  }
  return mesh;
}

}  // namespace cad
