#pragma once
// What a drawing's setters put into a file that has the objects of another drawing.

#include <string>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace cad::dwg {

// The DWG file with the properties, patterns and variables of `source`, whose records have these handles in
// it. Throws std::logic_error for what is refused although the file could hold it.
std::string withTypedValues(const Drawing& source, const std::vector<Handle>& handles, std::string file);

}  // namespace cad::dwg
