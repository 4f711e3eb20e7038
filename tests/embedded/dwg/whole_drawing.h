#pragma once
// A small drawing that is whole, in every version, made by the tests themselves.

#include "tests/embedded/dwg/small_files.h"

namespace cad::dwg {

// Layers 0 and WALL, text style Standard, dimension style Standard, the block MARK with a circle. In model
// space by handle: 0x30 a line and 0x31 a text "one" on WALL, 0x32 an insert of MARK on 0.
SmallDrawing wholeDrawing(Version version);

}  // namespace cad::dwg
