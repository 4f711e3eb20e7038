#pragma once
// Which characters are as wide as they are high.

namespace cad {

// East Asian characters, but for the half-width kana and hangul; not the signs and arrows that Western fonts
// have too.
constexpr bool isFullWidth(char32_t c) {
  const bool halfWidth = c >= 0xFF61 && c <= 0xFFDC;
  const bool sign = c >= 0x2000 && c < 0x2E80;
  return c >= 0x1100 && !halfWidth && !sign;
}

}  // namespace cad
