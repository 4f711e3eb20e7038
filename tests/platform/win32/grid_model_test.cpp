#include "platform/win32/grid_model.h"

#include <gtest/gtest.h>

namespace kiv::win32 {
namespace {

// A header and four whole rows of 20 pixels, and a part of a fifth.
GridLayout layoutFrom(int topRow) {
  GridLayout layout;
  layout.width = 200;
  layout.height = 110;
  layout.rowHeight = 20;
  layout.numberWidth = 30;
  layout.leading = 4;
  layout.topRow = topRow;
  return layout;
}

TEST(GridLayout, RowsStandUnderTheHeader) {
  const GridLayout layout = layoutFrom(5);
  EXPECT_EQ(layout.page(), 4);
  EXPECT_EQ(layout.cell(5), (Rect{30, 20, 200, 40}));
  EXPECT_EQ(layout.number(6), (Rect{0, 40, 30, 60}));
  EXPECT_EQ(layout.rowAt(19), -1);
  EXPECT_EQ(layout.rowAt(20), 5);
  EXPECT_EQ(layout.rowAt(59), 6);
  EXPECT_LT(layout.cell(4).bottom, 0) << "a row above the first one does not stand under the header";
}

TEST(GridLayout, TheEditorLeavesTheLinesOfItsCell) {
  const GridLayout layout = layoutFrom(0);
  EXPECT_EQ(layout.editor(1), (Rect{30, 42, 199, 59}));
  EXPECT_LT(layoutFrom(2).editor(1).bottom, 0);
}

TEST(GridLayout, ScrollsNoFurtherThanNeeded) {
  const GridLayout layout = layoutFrom(5);
  EXPECT_EQ(layout.topShowing(2), 2);
  EXPECT_EQ(layout.topShowing(5), 5);
  EXPECT_EQ(layout.topShowing(8), 5);
  EXPECT_EQ(layout.topShowing(9), 6);
  EXPECT_EQ(layout.topFor(-1, 10), 0);
  EXPECT_EQ(layout.topFor(9, 10), 6);
  EXPECT_EQ(layout.topFor(3, 2), 0);
}

}  // namespace
}  // namespace kiv::win32
