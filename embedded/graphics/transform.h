#pragma once
// Where the points of an object or a block come to lie in the plan view.

#include "embedded/drawing/geometry.h"
#include "embedded/graphics/scene.h"

namespace cad {

// x' = xx * x + yx * y + x0, y' = xy * x + yy * y + y0
struct Transform {
  double xx = 1, xy = 0, yx = 0, yy = 1, x0 = 0, y0 = 0;

  ScenePoint point(const ScenePoint& at) const;   // bulge kept as it is
  ScenePoint vector(const ScenePoint& of) const;  // without the shift
  Transform after(const Transform& first) const;  // `first`, then this one
  bool mirrors() const { return xx * yy - xy * yx < 0; }
  bool keepsCircles() const;
};

// The plan view of an object's own system: `normal` need not be of unit length, one without length counts as
// (0, 0, 1). `elevation` is the z of its points.
Transform planView(const Point& normal, double elevation);

// The place of one cell of a block reference; `base` is the block's base point.
Transform placement(const InsertGeometry& insert, const Point& normal, const Point& base, int column,
                    int row);

}  // namespace cad
