#pragma once
// The wires of the meshes that old files keep as polylines, whatever the file format.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "embedded/drawing/geometry.h"

namespace cad {

// m rows of n vertices each, row by row.
struct MeshGrid {
  std::size_t m = 0, n = 0;
  bool closedInM = false, closedInN = false;
};

// Nothing when there are fewer vertices than the grid has places.
MeshGeometry gridWires(std::span<const Point> vertices, const MeshGrid& grid);

// The numbers of a face's corners from 1, with 0 behind the last; below 0: the edge that begins there is
// hidden.
using MeshFace = std::array<std::int64_t, 4>;

// Edges at corners that are not there are left out.
MeshGeometry faceWires(std::span<const Point> corners, std::span<const MeshFace> faces);

}  // namespace cad
