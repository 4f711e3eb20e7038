#include "cadhost/palette.h"

#include <gtest/gtest.h>

namespace cadhost {
namespace {

TEST(Palette, TheNumbersThatEveryoneKnows) {
  EXPECT_EQ(paletteColor(1), 0xFF0000u);
  EXPECT_EQ(paletteColor(2), 0xFFFF00u);
  EXPECT_EQ(paletteColor(3), 0x00FF00u);
  EXPECT_EQ(paletteColor(4), 0x00FFFFu);
  EXPECT_EQ(paletteColor(5), 0x0000FFu);
  EXPECT_EQ(paletteColor(6), 0xFF00FFu);
  EXPECT_EQ(paletteColor(8), 0x808080u);
}

TEST(Palette, WhiteWhereTheBackgroundIsDark) {
  EXPECT_EQ(paletteColor(7), 0xFFFFFFu);
  EXPECT_EQ(paletteColor(0), 0xFFFFFFu);
}

TEST(Palette, HuesGoRoundTheCircleInTens) {
  EXPECT_EQ(paletteColor(10), 0xFF0000u);
  EXPECT_EQ(paletteColor(30), 0xFF7F00u);
  EXPECT_EQ(paletteColor(50), 0xFFFF00u);
  EXPECT_EQ(paletteColor(90), 0x00FF00u);
  EXPECT_EQ(paletteColor(130), 0x00FFFFu);
  EXPECT_EQ(paletteColor(170), 0x0000FFu);
  EXPECT_EQ(paletteColor(210), 0xFF00FFu);
}

TEST(Palette, WithinAHuePaleAndDarkAlternate) {
  EXPECT_EQ(paletteColor(11), 0xFF7F7Fu);
  EXPECT_EQ(paletteColor(12), 0xA50000u);
  EXPECT_EQ(paletteColor(13), 0xA55252u);
  EXPECT_EQ(paletteColor(18), 0x260000u);
}

TEST(Palette, TheLastSixAreGreys) {
  EXPECT_EQ(paletteColor(250), 0x333333u);
  EXPECT_EQ(paletteColor(255), 0xFFFFFFu);
}

}  // namespace
}  // namespace cadhost
