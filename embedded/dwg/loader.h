#pragma once
// Reads a DWG file.

#include <memory>

#include "base/result.h"
#include "embedded/drawing/drawing.h"

namespace cad::dwg {

// Refused, with the byte as the place: what readDwgFile() refuses. An object that does not hold together is
// kept as it came.
base::Result<std::unique_ptr<Drawing>> read(std::shared_ptr<const SourceBytes> source);

}  // namespace cad::dwg
