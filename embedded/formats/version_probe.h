#pragma once
// What the first bytes of a file tell of the drawing in it, for those who look at many files and open none.

#include "embedded/dxf/version_probe.h"

namespace cad::formats {

using BeginningFacts = dxf::BeginningFacts;

// As the one for DXF files, for files of every format that can be opened here. A DWG file before R13 is no
// drawing.
std::optional<BeginningFacts> factsOfBeginning(std::string_view bytes, bool isWhole);

}  // namespace cad::formats
