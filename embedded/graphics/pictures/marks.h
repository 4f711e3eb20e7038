#pragma once
// Marks that are seen at a glance: a pale band with a dark edge around what is marked, and a box around what
// is very small.

#include <unordered_set>

#include "embedded/graphics/pictures/scene_painter.h"

namespace cad {

// How many of the marked entities the scene shows.
std::size_t addMarks(const Scene& scene, const std::unordered_set<RecordId>& marked, ScenePainter& painter,
                     Picture& picture);

}  // namespace cad
