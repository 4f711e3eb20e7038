#include "embedded/graphics/text_layout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace cad {
namespace {

TextGeometry sample(std::wstring contents) {
  TextGeometry text;
  text.at = {10, 20, 0};
  text.height = 2;
  text.contents = std::move(contents);
  return text;
}

// Of height 1.
double widthOf(const wchar_t* line) {
  const TextGeometry text = sample(line);
  return layOut(text).at(0).along.x / text.height;
}

TEST(TextLayout, AlignedTextsMeetTheirPoint) {
  TextGeometry text = sample(L"ABCD");
  const SceneText left = layOut(text).at(0);
  EXPECT_DOUBLE_EQ(left.origin.x, 10);
  EXPECT_DOUBLE_EQ(left.up.y, 2);
  text.side = TextGeometry::Side::kRight;
  text.level = TextGeometry::Level::kTop;
  const SceneText right = layOut(text).at(0);
  EXPECT_DOUBLE_EQ(right.origin.x + right.along.x, 10);
  EXPECT_DOUBLE_EQ(right.origin.y, 18);
  text.side = TextGeometry::Side::kCentre;
  text.level = TextGeometry::Level::kMiddle;
  text.rotation = 90;
  const SceneText middle = layOut(text).at(0);
  EXPECT_NEAR(middle.origin.y + middle.along.y / 2, 20, 1e-9);
  EXPECT_NEAR(middle.origin.x + middle.up.x / 2, 10, 1e-9);
}

TEST(TextLayout, TextsBetweenTwoPoints) {
  TextGeometry text = sample(L"ABCD");
  text.second = {10, 60, 0};
  text.side = TextGeometry::Side::kFit;
  const SceneText fitted = layOut(text).at(0);
  EXPECT_NEAR(fitted.along.y, 40, 1e-9);
  EXPECT_NEAR(std::hypot(fitted.up.x, fitted.up.y), 2, 1e-9);
  text.side = TextGeometry::Side::kAligned;
  const SceneText aligned = layOut(text).at(0);
  EXPECT_NEAR(aligned.along.y, 40, 1e-9);
  EXPECT_NEAR(std::hypot(aligned.up.x, aligned.up.y), 40 / widthOf(L"ABCD"), 1e-9);
}

TEST(TextLayout, LinesOfMultilineTexts) {
  TextGeometry text = sample(L"{\\fMS Gothic|b0;一行目}\\P\\P三行目");
  text.multiline = true;
  text.level = TextGeometry::Level::kTop;
  const std::vector<SceneText> lines = layOut(text);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].text, L"一行目");
  EXPECT_NEAR(lines[0].origin.y, 18, 1e-9);
  EXPECT_NEAR(lines[1].origin.y, 18 - 2 * 2 * 5.0 / 3, 1e-9);
  text.contents = L"one two three";
  text.frameWidth = 2 * widthOf(L"one two");
  text.level = TextGeometry::Level::kBottom;
  const std::vector<SceneText> wrapped = layOut(text);
  ASSERT_EQ(wrapped.size(), 2u);
  EXPECT_EQ(wrapped[1].text, L"three");
  EXPECT_NEAR(wrapped[1].origin.y, 20, 1e-9);
}

}  // namespace
}  // namespace cad
