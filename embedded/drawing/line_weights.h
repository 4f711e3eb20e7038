#pragma once
// The lineweights that there are, in hundredths of a millimetre.

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace cad {

// A step that exists, or by layer (-1), by block (-2), default (-3).
constexpr bool isLineWeight(std::int64_t value) {
  constexpr std::int64_t kSteps[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                     50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
  return std::binary_search(std::begin(kSteps), std::end(kSteps), value);
}

}  // namespace cad
