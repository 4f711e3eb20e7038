#include "cadhost/color_table.h"

#include <gtest/gtest.h>

#include <set>

namespace cadhost {
namespace {

TEST(ColorTable, HasEveryNumberOnceAndKeysReachThem) {
  std::set<int> seen;
  for (int row = -1; row <= kColorRows; ++row) {
    for (int column = -1; column <= kColorColumns; ++column) {
      const auto number = colorOfCell({column, row});
      if (!number) continue;
      EXPECT_TRUE(seen.insert(*number).second) << *number;
      EXPECT_EQ(cellOfColor(*number), (ColorCell{column, row}));
    }
  }
  EXPECT_EQ(seen.size(), 255U);
  EXPECT_EQ(*seen.begin(), 1);
  EXPECT_EQ(*seen.rbegin(), 255);

  const struct {
    int from;
    Step step;
    int to;
  } steps[] = {{10, Step::kRight, 20}, {10, Step::kLeft, 10}, {240, Step::kRight, 240},
               {10, Step::kDown, 11},  {18, Step::kUp, 18},   {19, Step::kDown, 1},
               {249, Step::kDown, 9},  {9, Step::kDown, 255}, {250, Step::kDown, 250},
               {3, Step::kUp, 39},     {5, Step::kLast, 9},   {122, Step::kFirst, 12}};
  for (const auto& [from, step, to] : steps) EXPECT_EQ(colorAfter(from, step), to) << from;
}

}  // namespace
}  // namespace cadhost
