#pragma once
// Draws a shape of a compiled file: its strokes, how far they reach, and where the pen ends.

#include <vector>

#include "embedded/support/shape_file.h"

namespace cad {

struct ShapePoint {
  double x = 0, y = 0;
};

// In the units of the file, from where the shape begins.
struct ShapeExtents {
  double left = 0, right = 0, bottom = 0, top = 0;
  bool inked = false;  // the four count
  double endX = 0;     // of the pen
};

// A line that the pen draws without being lifted; arcs as straight pieces.
using ShapeStroke = std::vector<ShapePoint>;

// Written horizontally. What a damaged file leaves open draws nothing. The strokes are appended to `strokes`,
// where there is one.
ShapeExtents extentsOf(const support::ShapeFile& file, std::string_view codes,
                       std::vector<ShapeStroke>* strokes = nullptr);

}  // namespace cad
