#include "cadhost/canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace cadhost {
namespace {

// A small picture that can be read: a dot for the background, the colour's digit for the rest. A guard
// around it shows what was written outside.
class Page {
 public:
  static constexpr int kWidth = 10, kHeight = 6, kGuard = 64;
  Page() : memory_(kWidth * kHeight + 2 * kGuard, 0), canvas(memory_.data() + kGuard, kWidth, kHeight) {}

  std::string row(int y) const {
    std::string out;
    for (int x = 0; x < kWidth; ++x) {
      const std::uint32_t pixel = memory_[static_cast<std::size_t>(kGuard + y * kWidth + x)];
      out += pixel == 0 ? '.' : static_cast<char>('0' + pixel);
    }
    return out;
  }
  int count() const {
    int out = 0;
    for (const std::uint32_t pixel : memory_) out += pixel != 0;
    return out;
  }
  int inside() const {
    int out = 0;
    for (int y = 0; y < kHeight; ++y)
      for (const char c : row(y)) out += c != '.';
    return out;
  }

 private:
  std::vector<std::uint32_t> memory_;

 public:
  Canvas canvas;
};

TEST(Canvas, LinesReachBothEnds) {
  Page page;
  page.canvas.line({1.5, 1.5}, {8.5, 1.5}, 1);
  page.canvas.line({4.5, 0.5}, {4.5, 5.5}, 2);
  EXPECT_EQ(page.row(0), "....2.....");
  EXPECT_EQ(page.row(1), ".11121111.");
  EXPECT_EQ(page.row(5), "....2.....");
}

TEST(Canvas, LinesFromFarAwayAreClippedWhereTheyCross) {
  Page page;
  page.canvas.line({-1e12, 2.5}, {1e12, 2.5}, 1);
  EXPECT_EQ(page.row(2), "1111111111");
  page.canvas.line({-100, -97.5}, {100, 102.5}, 2);  // y = x + 2.5
  EXPECT_EQ(page.row(3), ".2........");
  EXPECT_EQ(page.row(4), "..2.......");
  page.canvas.line({-5, -5}, {-1, 40}, 3);
  page.canvas.line({20, 0}, {30, 6}, 3);
  EXPECT_EQ(page.count(), page.inside());
}

TEST(Canvas, NothingIsDrawnForWhatIsNoNumber) {
  Page page;
  const double nan = std::nan(""), infinity = std::numeric_limits<double>::infinity();
  page.canvas.line({nan, 0}, {3, 3}, 1);
  page.canvas.line({0, 0}, {infinity, 3}, 1);
  page.canvas.dot({nan, 1}, 1);
  page.canvas.dot({1e300, -1e300}, 1);
  const Pixel corners[] = {{0, 0}, {infinity, 3}, {2, nan}};
  const std::size_t ends[] = {3};
  page.canvas.fill(corners, ends, 1);
  EXPECT_EQ(page.count(), 0);
}

TEST(Canvas, TheClipHoldsForEverything) {
  Page page;
  page.canvas.setClip({2, 1, 6, 4});
  page.canvas.clear(1);
  page.canvas.line({0, 0}, {9, 5}, 2);
  page.canvas.dashedLine({0, 3.5}, {9, 3.5}, 3, 4);
  const Pixel corners[] = {{-10, -10}, {50, -10}, {50, 50}, {-10, 50}};
  const std::size_t ends[] = {4};
  page.canvas.fill(corners, ends, 5);
  EXPECT_EQ(page.count(), 4 * 3);
  EXPECT_EQ(page.row(1), "..5555....");
  page.canvas.setClip({-5, -5, 100, 100});
  EXPECT_EQ(page.canvas.clip(), page.canvas.whole());
}

TEST(Canvas, FilledAreasHaveHoles) {
  Page page;
  const Pixel corners[] = {{1, 0}, {9, 0}, {9, 6}, {1, 6}, {3, 2}, {7, 2}, {7, 4}, {3, 4}};
  const std::size_t ends[] = {4, 8};
  page.canvas.fill(corners, ends, 1);
  EXPECT_EQ(page.row(0), ".11111111.");
  EXPECT_EQ(page.row(2), ".11....11.");
  EXPECT_EQ(page.row(4), ".11111111.");
}

TEST(Canvas, NeighbouringAreasNeitherOverlapNorLeaveAGap) {
  Page page;
  const std::size_t ends[] = {4};
  const Pixel left[] = {{0, 0}, {4.5, 0}, {2.3, 6}, {0, 6}}, right[] = {{4.5, 0}, {10, 0}, {10, 6}, {2.3, 6}};
  page.canvas.fill(left, ends, 1);
  const int before = page.count();
  page.canvas.fill(right, ends, 2);
  int ones = 0;
  for (int y = 0; y < Page::kHeight; ++y)
    for (const char c : page.row(y)) ones += c == '1';
  EXPECT_EQ(ones, before);
  EXPECT_EQ(page.count(), Page::kWidth * Page::kHeight);
}

}  // namespace
}  // namespace cadhost
