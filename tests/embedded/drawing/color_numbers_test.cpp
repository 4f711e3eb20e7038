#include "embedded/drawing/color_numbers.h"

#include <gtest/gtest.h>

#include <utility>

namespace cad {
namespace {

// As drawings have them that other programs saved.
TEST(ColorNumbers, ATrueColourHasTheNumberThatProgramsWriteBesideIt) {
  const std::pair<Rgb, int> known[] = {{0x000000, 18}, {0xFFFFFF, 7},   {0x0000FF, 5},   {0x333333, 250},
                                       {0x787878, 8},  {0xE29000, 42},  {0xFCC187, 31},  {0x2C881B, 86},
                                       {0x367542, 97}, {0x50B3FF, 151}, {0x803DC2, 183}, {0x9B42EC, 193},
                                       {0x7D214F, 247}};
  for (const auto& [color, number] : known) EXPECT_EQ(nearestColorNumber(color), number) << color;
}

}  // namespace
}  // namespace cad
