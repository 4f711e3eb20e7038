#include "cadhost/paint.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace cadhost {
namespace {

// A picture of 100 by 100 pixels; in the beginning it shows the square from (0, 0) to (100, 100).
class PaintTest : public testing::Test {
 protected:
  PaintTest() : pixels_(100 * 100, 0), canvas_(pixels_.data(), 100, 100) {
    view_.setSize(100, 100);
    cad::SceneBox box;
    box.add(0, 0);
    box.add(100, 100);
    view_.showAll(box);
    view_.zoom(1 / view_.pixelsPerUnit(), {50, 50});
  }

  cad::SceneItem& add(cad::SceneItemKind kind, std::initializer_list<cad::ScenePoint> points, bool closed,
                      std::uint8_t color = 1) {
    cad::SceneItem item;
    item.kind = kind;
    item.color = color;
    item.entity = static_cast<cad::RecordId>(scene_.items.size());
    item.first = static_cast<std::uint32_t>(scene_.loops.size());
    item.count = 1;
    scene_.loops.push_back({static_cast<std::uint32_t>(scene_.points.size()),
                            static_cast<std::uint32_t>(points.size()), closed});
    for (const cad::ScenePoint& point : points) {
      scene_.points.push_back(point);
      item.box.add(point.x, point.y);
    }
    scene_.items.push_back(item);
    return scene_.items.back();
  }
  void addText(double height) {
    cad::SceneItem item;
    item.kind = cad::SceneItemKind::kText;
    item.first = static_cast<std::uint32_t>(scene_.texts.size());
    item.count = 1;
    item.box.add(10, 10);
    item.box.add(60, 10 + height);
    cad::SceneText text;
    text.origin = {10, 10};
    text.along = {50, 0};
    text.up = {0, height};
    text.text = L"ABC";
    scene_.texts.push_back(text);
    scene_.items.push_back(item);
  }

  std::vector<VisibleText> paint() { return ScenePainter(canvas_, view_).paint(scene_); }
  Rgb at(double x, double y) const {
    const Pixel pixel = view_.toPixel(x, y);
    return pixels_[static_cast<std::size_t>(static_cast<int>(pixel.y) * 100 + static_cast<int>(pixel.x))];
  }
  int painted() const {
    int out = 0;
    for (const std::uint32_t pixel : pixels_) out += pixel != 0;
    return out;
  }

  std::vector<std::uint32_t> pixels_;
  Canvas canvas_;
  ViewTransform view_;
  cad::Scene scene_;
};

using Kind = cad::SceneItemKind;
constexpr Rgb kRed = 0xFF0000, kGreen = 0x00FF00;

TEST_F(PaintTest, OutlinesStandUprightAndLaterOnesLieOnTop) {
  add(Kind::kOutline, {{10.5, 20.5}, {90.5, 20.5}}, false, 1);
  add(Kind::kOutline, {{50.5, 20.5}, {50.5, 80.5}}, false, 3);
  paint();
  EXPECT_EQ(at(20.5, 20.5), kRed);
  EXPECT_EQ(at(50.5, 20.5), kGreen);
  EXPECT_EQ(at(50.5, 79.5), kGreen);
  EXPECT_EQ(at(20.5, 79.5), 0u);
}

TEST_F(PaintTest, ClosedLoopsReturnAndArcsBulge) {
  add(Kind::kOutline, {{20.5, 20.5}, {80.5, 20.5}, {80.5, 60.5}}, true);
  paint();
  EXPECT_EQ(at(50.5, 40.5), kRed);
  scene_ = {};
  // Half a circle above the x axis, from right to left.
  cad::SceneItem& arc = add(Kind::kOutline, {{80.5, 30.5, 1}, {20.5, 30.5}}, false, 3);
  arc.box.add(50.5, 60.5);
  paint();
  EXPECT_TRUE(at(50.5, 60.5) == kGreen || at(50.5, 59.9) == kGreen);
}

TEST_F(PaintTest, SmallerThanAPixelIsADotAndOutOfSightIsNothing) {
  add(Kind::kOutline, {{30.2, 30.2}, {30.4, 30.2}, {30.4, 30.4}}, true);
  add(Kind::kFill, {{40.2, 40.2}, {40.4, 40.2}, {40.4, 40.4}}, true);
  add(Kind::kOutline, {{500, 500}, {600, 600}}, false);
  paint();
  EXPECT_EQ(painted(), 2);
  EXPECT_EQ(at(30.2, 30.2), kRed);
  EXPECT_EQ(at(40.2, 40.2), kRed);
}

TEST_F(PaintTest, OnlyWithinTheClip) {
  add(Kind::kFill, {{0, 0}, {100, 0}, {100, 100}, {0, 100}}, true);
  addText(50);
  canvas_.setClip({90, 0, 100, 100});
  EXPECT_TRUE(paint().empty());
  EXPECT_EQ(painted(), 10 * 100);
}

TEST_F(PaintTest, ReadableTextsAreHandedOutOthersAreALine) {
  addText(20);
  const std::vector<VisibleText> texts = paint();
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].text, &scene_.texts[0]);
  EXPECT_EQ(painted(), 0);
  scene_ = {};
  addText(1.5);
  EXPECT_TRUE(paint().empty());
  EXPECT_GT(painted(), 40);
}

TEST_F(PaintTest, OneEntityIsHighlighted) {
  add(Kind::kOutline, {{10, 50}, {90, 50}}, false);
  add(Kind::kOutline, {{10, 20}, {90, 20}}, false);
  ScenePainter(canvas_, view_).highlight(scene_, 1);
  int highlighted = 0;
  for (int x = 10; x < 90; ++x) {
    highlighted += at(x, 20) == kHighlight;
    EXPECT_EQ(at(x, 50), 0u);
  }
  EXPECT_GT(highlighted, 30);
  EXPECT_LT(highlighted, 60);
}

}  // namespace
}  // namespace cadhost
