#pragma once
// What colours the numbers 1 to 255 stand for.

#include <array>
#include <cstdint>

namespace cad {

using Rgb = std::uint32_t;  // 0xRRGGBB

// Of the numbers that share a hue, two by two, 0 to 255.
using Brightness = std::array<int, 5>;

// Number 7, and whatever is no colour number, is white.
Rgb colorOfNumber(std::uint8_t number, const Brightness& brightness);

// The number that stands for a true colour where a number is asked for: the one whose colour is nearest, the
// lowest of several.
std::uint8_t nearestColorNumber(Rgb color);

}  // namespace cad
