#include "cadhost/view_transform.h"

#include <gtest/gtest.h>

#include <cmath>

namespace cadhost {
namespace {

cad::SceneBox box(double left, double bottom, double right, double top) {
  cad::SceneBox out;
  out.add(left, bottom);
  out.add(right, top);
  return out;
}

ViewTransform window(int width, int height) {
  ViewTransform view;
  view.setSize(width, height);
  return view;
}

TEST(ViewTransform, TheWholeBoxIsSeenWithAMarginWhateverItsShape) {
  for (const cad::SceneBox& all : {box(0, 0, 4000, 10), box(-5, -5000, 5, 5000), box(7, 0, 7, 100)}) {
    ViewTransform view = window(800, 600);
    view.showAll(all);
    const Pixel lowerLeft = view.toPixel(all.left, all.bottom), upperRight = view.toPixel(all.right, all.top);
    EXPECT_GT(lowerLeft.x, 0);
    EXPECT_GT(upperRight.y, 0);
    EXPECT_LT(upperRight.x, 800);
    EXPECT_LT(lowerLeft.y, 600);
    EXPECT_TRUE(upperRight.x - lowerLeft.x > 700 || lowerLeft.y - upperRight.y > 500);
  }
}

TEST(ViewTransform, AnEmptyDrawingAndASinglePointShowASheet) {
  ViewTransform view = window(840, 594);
  view.showAll({});
  const Pixel lowerLeft = view.toPixel(0, 0), upperRight = view.toPixel(420, 297);
  EXPECT_TRUE(lowerLeft.x > 0 && lowerLeft.y < 594);
  EXPECT_TRUE(upperRight.x < 840 && upperRight.y > 0);
  view.showAll(box(10000, 10000, 10000, 10000));
  EXPECT_NEAR(view.toPixel(10000, 10000).x, 420, 1e-6);
  EXPECT_LT(view.pixelsPerUnit(), 10);
}

TEST(ViewTransform, ZoomKeepsWhatIsUnderThePointer) {
  ViewTransform view = window(800, 600);
  view.showAll(box(0, 0, 100, 100));
  const DrawingPoint under = view.toDrawing({123, 456});
  const double before = view.pixelsPerUnit();
  view.zoom(2.5, {123, 456});
  EXPECT_NEAR(view.pixelsPerUnit(), 2.5 * before, 1e-9);
  EXPECT_NEAR(view.toPixel(under.x, under.y).x, 123, 1e-6);
  EXPECT_NEAR(view.toPixel(under.x, under.y).y, 456, 1e-6);
}

TEST(ViewTransform, ZoomStopsBeforeNumbersLoseTheirMeaning) {
  ViewTransform view = window(800, 600);
  view.showAll(box(1e6, 1e6, 1e6 + 100, 1e6 + 100));
  for (int i = 0; i < 1000; ++i) view.zoom(1.25, {400, 300});
  const DrawingPoint a = view.toDrawing({400, 300}), b = view.toDrawing({401, 300});
  EXPECT_NE(a.x, b.x);
  for (int i = 0; i < 1000; ++i) view.zoom(0.5, {400, 300});
  EXPECT_TRUE(std::isfinite(view.toDrawing({0, 0}).x));
  EXPECT_GT(view.pixelsPerUnit(), 0);
}

TEST(ViewTransform, PanFollowsThePointerAndResizingKeepsTheMiddle) {
  ViewTransform view = window(800, 600);
  view.showAll(box(0, 0, 100, 100));
  const Pixel before = view.toPixel(30, 40);
  view.pan(17, -5);
  EXPECT_NEAR(view.toPixel(30, 40).x, before.x + 17, 1e-9);
  EXPECT_NEAR(view.toPixel(30, 40).y, before.y - 5, 1e-9);
  const DrawingPoint middle = view.toDrawing({400, 300});
  view.setSize(500, 900);
  EXPECT_NEAR(view.toPixel(middle.x, middle.y).x, 250, 1e-9);
  EXPECT_NEAR(view.toPixel(middle.x, middle.y).y, 450, 1e-9);
}

}  // namespace
}  // namespace cadhost
