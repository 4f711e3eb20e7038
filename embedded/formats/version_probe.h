#pragma once
// What the first bytes of a file tell of the drawing in it, for those who look at many files and open none.

#include "embedded/dxf/version_probe.h"

namespace cad::formats {

using BeginningFacts = dxf::BeginningFacts;

// As the one for DXF files, for files of every format that is known by name, those that cannot be opened
// here included.
std::optional<BeginningFacts> factsOfBeginning(std::string_view bytes, bool isWhole);

}  // namespace cad::formats
