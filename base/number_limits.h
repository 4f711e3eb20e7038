#pragma once
// The limits of a number that is set.

#include <cmath>
#include <cstdint>
#include <limits>

namespace base {

struct NumberLimits {
  double least = std::numeric_limits<double>::lowest();
  double most = std::numeric_limits<double>::max();
  bool holdsZero = true;
  bool (*isStep)(std::int64_t value) = nullptr;  // of integers that take certain values only

  bool hold(double value) const {
    if (!std::isfinite(value) || value < least || value > most) return false;
    if (!holdsZero && value == 0) return false;
    return isStep == nullptr || isStep(static_cast<std::int64_t>(value));
  }
};

}  // namespace base
