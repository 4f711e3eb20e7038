#pragma once
// The colours of the numbers 1 to 255.

#include <cstdint>

namespace cad {

using Rgb = std::uint32_t;  // 0xRRGGBB

// Number 7, and whatever is no colour number, is white: drawings are shown on a dark background.
Rgb paletteColor(std::uint8_t number);

}  // namespace cad
