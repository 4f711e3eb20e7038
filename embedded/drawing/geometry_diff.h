#pragma once
// What differs in the geometry of two entities.

#include <string>
#include <utility>

#include "embedded/drawing/drawing.h"

namespace cad {

// The parts that differ, as texts of both sides ("to (10, 0)", "radius 5"), the first few of them; both
// empty: none does. What a property tells (heights, rotations, contents, blocks) is no part.
std::pair<std::wstring, std::wstring> geometryChange(const Drawing& before, RecordId one,
                                                     const Drawing& after, RecordId other);

}  // namespace cad
