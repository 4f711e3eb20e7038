#pragma once
// Which entities of a drawing a picture marks, because they differ from another drawing.

#include <unordered_set>

#include "embedded/drawing/drawing_diff.h"

namespace kivcli {

enum class DiffSide { kBefore, kAfter };  // which of the two compared drawings is painted

// Main entities of the spaces: those that differ, of an attribute or a vertex what it belongs to, and the
// references to a block in which something differs, however deep.
std::unordered_set<cad::RecordId> markedEntities(const cad::Drawing& drawing,
                                                 const cad::DrawingDifferences& differences, DiffSide side);

}  // namespace kivcli
