#pragma once
// When two numbers count as equal: a value typed by a person and one that a drawing keeps in binary.

namespace kiv {

// To six decimals.
bool equalNumbers(double a, double b);

// Angles in degrees, equal when they point the same way: 360 is 0, -90 is 270.
bool equalAngles(double a, double b);

// 0 <= result < 360, to six decimals.
double normalisedDegrees(double degrees);

}  // namespace kiv
