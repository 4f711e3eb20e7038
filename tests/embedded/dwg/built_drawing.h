#pragma once
// A small DWG drawing, made by the tests themselves: the tables with a few records of their own, two spaces,
// a block with an attribute and its reference, a dimension with its block, and an entity of most kinds.

#include <string>

#include "tests/embedded/dwg/small_files.h"

namespace cad::dwg {

// What its file consists of. Layers "Layer1" and "Layer_Off", the linetype "ACAD_ISO02W100", the text style
// "Japanese" and the block "PART" are there besides what every drawing has.
SmallDrawing builtParts(base::Version version);
inline std::string builtDrawing(base::Version version) { return bytesOf(builtParts(version)); }

}  // namespace cad::dwg
