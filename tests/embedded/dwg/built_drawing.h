#pragma once
// A small DWG drawing, made by the tests themselves: the tables with a few records of their own, two spaces,
// a block with an attribute and its reference, a dimension with its block, and an entity of most kinds.

#include <string>

#include "base/drawing_version.h"

namespace cad::dwg {

// The file's bytes. Layers "Layer1" and "Layer_Off", the linetype "ACAD_ISO02W100", the text style
// "Japanese" and the block "PART" are there besides what every drawing has.
std::string builtDrawing(base::Version version);

}  // namespace cad::dwg
