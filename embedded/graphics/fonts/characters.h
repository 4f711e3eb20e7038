#pragma once
// Characters that fonts treat specially: the signs of a diameter, and those as wide as they are high.

namespace cad {

// What a dimension writes, the sign that was made for it, and what fonts without either have.
constexpr char32_t kDiameter = 0x2205, kDiameterSign = 0x2300, kSlashedO = 0x00D8;

// East Asian characters, but for the half-width kana and hangul; not the signs and arrows that Western fonts
// have too.
constexpr bool isFullWidth(char32_t c) {
  const bool halfWidth = c >= 0xFF61 && c <= 0xFFDC;
  const bool sign = c >= 0x2000 && c < 0x2E80;
  return c >= 0x1100 && !halfWidth && !sign;
}

}  // namespace cad
