#pragma once
// Curves as points: circular arcs exactly, by bulges; others by straight pieces fine enough for any zoom
// that a person uses.

#include <vector>

#include "embedded/drawing/geometry.h"
#include "embedded/graphics/scene.h"

namespace cad {

struct CurvePoints {
  std::vector<ScenePoint> points;
  bool closed = false;
};

CurvePoints curveOf(const ArcGeometry& arc);
// `normal` turns the minor axis.
CurvePoints curveOf(const EllipseGeometry& ellipse, const Point& normal);
CurvePoints curveOf(const SplineGeometry& spline);
CurvePoints curveOf(const PolylineGeometry& polyline);

}  // namespace cad
