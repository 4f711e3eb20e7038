#pragma once
// Colours as files keep them in one number, whose highest byte tells what the rest of it is.

#include <cstdint>

namespace cad {

enum class ColorCode : std::uint8_t {
  kByLayer = 0xC0,
  kByBlock = 0xC1,
  kTrue = 0xC2,
  kNumber = 0xC3,
  kNone = 0xC8
};

constexpr ColorCode colorCodeOf(std::int64_t packed) { return static_cast<ColorCode>(packed >> 24 & 0xFF); }

// `value`: 0xRRGGBB of a true colour, a number, else nothing. Signed, as its field of 32 bits reads.
constexpr std::int64_t packedColor(ColorCode code, std::int64_t value = 0) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(code) << 24 |
                                   static_cast<std::uint32_t>(value & 0xFFFFFF));
}

}  // namespace cad
