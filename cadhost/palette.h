#pragma once
// The colours of the numbers 1 to 255.

#include <cstdint>

namespace cadhost {

using Rgb = std::uint32_t;  // 0xRRGGBB

inline constexpr Rgb kBackground = 0x12161B;
inline constexpr Rgb kHighlight = 0xFFB000;

// Number 7, and whatever is no colour number, is white: it must stand out from the background.
Rgb paletteColor(std::uint8_t number);

}  // namespace cadhost
