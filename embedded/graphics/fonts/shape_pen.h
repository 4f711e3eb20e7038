#pragma once
// Draws a shape of a compiled file: how far its strokes reach, and where the pen ends.

#include "embedded/support/shape_file.h"

namespace cad {

// In the units of the file, from where the shape begins.
struct ShapeExtents {
  double left = 0, right = 0, bottom = 0, top = 0;
  bool inked = false;  // the four count
  double endX = 0;     // of the pen
};

// Written horizontally. What a damaged file leaves open draws nothing.
ShapeExtents extentsOf(const support::ShapeFile& file, std::string_view codes);

}  // namespace cad
