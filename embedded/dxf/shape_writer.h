#pragma once
// Plain geometry as entities of a block. They take colour, linetype and lineweight from the reference.

#include "embedded/drawing/shapes.h"
#include "embedded/dxf/block_writer.h"

namespace cad::dxf {

void writeShape(Drawing& drawing, BlockWriter& block, const Shape& shape);

}  // namespace cad::dxf
