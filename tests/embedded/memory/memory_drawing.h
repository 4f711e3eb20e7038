#pragma once
// Drawings of the second storage.

#include <memory>
#include <string>
#include <string_view>

#include "embedded/drawing/drawing.h"

namespace cad::memory {

// What the typed properties, the geometry and the variables of a drawing tell, as a drawing in memory. The
// records have the same numbers; the last one is the header.
std::unique_ptr<Drawing> copyOf(const Drawing& drawing);

}  // namespace cad::memory
