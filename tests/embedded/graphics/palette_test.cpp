#include "embedded/graphics/palette.h"

#include <gtest/gtest.h>

#include <utility>

namespace cad {
namespace {

// A few numbers of each kind as python3-ezdxf's table has them, and white on a dark background.
TEST(Palette, NumbersAreTheColoursThatOtherProgramsShow) {
  const std::pair<std::uint8_t, Rgb> known[] = {
      {0, 0xFFFFFF},   {1, 0xFF0000},   {2, 0xFFFF00},   {5, 0x0000FF},   {7, 0xFFFFFF},
      {8, 0x808080},   {11, 0xFF7F7F},  {18, 0x260000},  {37, 0x4C3926},  {75, 0x5F7F3F},
      {106, 0x004C13}, {130, 0x00FFFF}, {173, 0x5252A5}, {221, 0xFF7FDF}, {255, 0xFFFFFF},
  };
  for (const auto& [number, color] : known) EXPECT_EQ(paletteColor(number), color) << int{number};
}

}  // namespace
}  // namespace cad
