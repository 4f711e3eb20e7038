#pragma once
// The colours in which the numbers 1 to 255 are shown.

#include <cstdint>

#include "embedded/drawing/color_numbers.h"

namespace cad {

// Number 7, and whatever is no colour number, is white: drawings are shown on a dark background.
Rgb paletteColor(std::uint8_t number);

}  // namespace cad
