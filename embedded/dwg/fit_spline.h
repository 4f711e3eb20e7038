#pragma once
// The curve of a spline that the file tells by the points through which it goes.

#include <cstdint>
#include <vector>

#include "embedded/drawing/geometry.h"

namespace cad::dwg {

// By what the parameters of neighbouring points differ, with the numbers of the file.
enum class FitSteps : std::uint8_t { kChord, kRootOfChord, kEven };

struct FitPoints {
  std::vector<Point> points;
  Point startTangent, endTangent;  // by the parameter; without a length: there is no bend at that end
  FitSteps steps = FitSteps::kChord;
};

// Knots and control points of the cubic curve. Gives none where fewer than two points are given, or two
// neighbours are one.
SplineGeometry splineThrough(const FitPoints& fit);

}  // namespace cad::dwg
