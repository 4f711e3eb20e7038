#pragma once
// Which entity lies at a point of the drawing.

#include "embedded/graphics/scene.h"

namespace cad {

// The entity nearest to the point among those within `tolerance` (drawing units, at least 0) of it; of
// equally near ones the newest. A text is as near as its box. A filled area is met inside too, but yields to
// everything whose lines are within the tolerance. kNoRecord when there is none.
RecordId hitTest(const Scene& scene, double x, double y, double tolerance);

// The distance of a point from a loop's lines and arcs; infinite for an empty loop.
double distanceTo(std::span<const ScenePoint> points, bool closed, double x, double y);

}  // namespace cad
