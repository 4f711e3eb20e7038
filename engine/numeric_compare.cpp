#include "engine/numeric_compare.h"

#include <cmath>

namespace kiv {
namespace {

double toSixDecimals(double value) { return std::round(value * 1e6); }

}  // namespace

bool equalNumbers(double a, double b) { return toSixDecimals(a) == toSixDecimals(b); }

double normalisedDegrees(double degrees) {
  double turned = std::fmod(degrees, 360.0);
  if (turned < 0) turned += 360.0;
  // Rounding can reach the full turn again (359.9999999).
  const double rounded = std::round(turned * 1e6) / 1e6;
  return rounded >= 360.0 ? 0.0 : rounded;
}

bool equalAngles(double a, double b) { return equalNumbers(normalisedDegrees(a), normalisedDegrees(b)); }

}  // namespace kiv
