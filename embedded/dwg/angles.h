#pragma once
// Angles: radians in the file, degrees elsewhere.

namespace cad::dwg {

double degreesOf(double radians);
// What degreesOf() makes the same number of again, where there is such a number.
double radiansOf(double degrees);

}  // namespace cad::dwg
