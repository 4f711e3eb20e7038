#pragma once
// The version of a DXF file by its beginning alone.

#include <optional>
#include <string_view>

#include "base/drawing_version.h"

namespace cad::dxf {

struct BeginningFacts {
  bool isDrawing = false;
  base::Version version = base::Version::kUnknown;  // of a drawing: kUnknown is newer than all that are known
};

// `isWhole`: the file has no more bytes. Nothing: more of it would tell. What follows the beginning may be
// damaged all the same.
std::optional<BeginningFacts> factsOfBeginning(std::string_view bytes, bool isWhole);

}  // namespace cad::dxf
