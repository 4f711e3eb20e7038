#include "embedded/graphics/hit_test.h"

#include "tests/embedded/graphics/scene_fixture.h"

namespace cad {
namespace {

// The type of the entity at a point, "" when there is none.
std::string hit(const Drawing& drawing, double x, double y, double tolerance) {
  const RecordId found = hitTest(buildScene(drawing), x, y, tolerance);
  return found == kNoRecord ? std::string() : std::string(drawing.typeName(found));
}

TEST(HitTest, DistancesFromPiecesAndArcs) {
  const ScenePoint line[] = {{0, 0}, {10, 0}};
  EXPECT_DOUBLE_EQ(distanceTo(line, false, 5, 3), 3);
  EXPECT_DOUBLE_EQ(distanceTo(line, false, 13, 4), 5);
  const ScenePoint triangle[] = {{0, 0}, {10, 0}, {10, 10}};
  EXPECT_DOUBLE_EQ(distanceTo(triangle, true, 5, 5), 0);
  EXPECT_GT(distanceTo(triangle, false, 5, 5), 4);
  const ScenePoint halfCircle[] = {{0, 0, 1}, {4, 0}};  // below the chord
  EXPECT_NEAR(distanceTo(halfCircle, false, 2, -3), 1, 1e-12);
  EXPECT_NEAR(distanceTo(halfCircle, false, 2, 1), std::hypot(2, 1), 1e-12);
  EXPECT_EQ(distanceTo({}, true, 0, 0), std::numeric_limits<double>::infinity());
}

TEST(HitTest, TheNearestEntityWithinTheTolerance) {
  const auto drawing = drawingOf("0 LINE|8 0|10 0|20 0|11 10|21 0|0 CIRCLE|8 0|10 5|20 5|40 4");
  EXPECT_EQ(hit(*drawing, 2, 0.2, 0.5), "LINE");
  EXPECT_EQ(hit(*drawing, 5, 0.6, 1), "CIRCLE");
  EXPECT_EQ(hit(*drawing, 5, 0.6, 0.3), "");
  EXPECT_EQ(hit(*drawing, 5, 5, 1), "") << "a circle is not filled";
  EXPECT_EQ(hit(*drawing, 10, 0, 0), "LINE");
}

TEST(HitTest, TheNewestOfEquallyNearOnes) {
  const auto drawing =
      drawingOf("0 LINE|8 0|10 0|20 0|11 4|21 0|0 LWPOLYLINE|8 0|90 2|70 0|10 0|20 0|10 4|20 0");
  EXPECT_EQ(hit(*drawing, 2, 0.1, 1), "LWPOLYLINE");
}

TEST(HitTest, TextsByTheirBoxes) {
  const auto drawing = drawingOf("0 TEXT|8 0|10 0|20 0|40 2|1 ABCD|0 LINE|8 0|10 -9|20 1.5|11 -1|21 1.5");
  EXPECT_EQ(hit(*drawing, 3, 1, 0.1), "TEXT");
  EXPECT_EQ(hit(*drawing, 3, 2.05, 0.1), "TEXT");
  EXPECT_EQ(hit(*drawing, 3, 2.5, 0.1), "");
  EXPECT_EQ(hit(*drawing, -1, 1.5, 0.5), "LINE");
  const auto turned = drawingOf("0 TEXT|8 0|10 0|20 0|40 2|50 90|1 ABCD");
  EXPECT_EQ(hit(*turned, -1, 3, 0.1), "TEXT");
  EXPECT_EQ(hit(*turned, 1, 3, 0.1), "");
}

TEST(HitTest, FilledAreasYieldToLinesInReach) {
  const auto drawing = drawingOf(
      "0 LINE|8 0|10 0|20 5|11 10|21 5|0 SOLID|8 0|10 0|20 0|11 10|21 0|12 0|22 10|13 10|23 10|0 LINE|8 0|10 "
      "0|20 "
      "8|11 10|21 8");
  EXPECT_EQ(hit(*drawing, 5, 2, 0.5), "SOLID");
  EXPECT_EQ(hit(*drawing, 5, 5.3, 0.5), "LINE") << "the line under the area";
  EXPECT_EQ(hit(*drawing, 5, 7.9, 0.5), "LINE");
  EXPECT_EQ(hit(*drawing, 20, 5, 0.5), "");
}

TEST(HitTest, IslandsOfHatchesAreNotHit) {
  const auto drawing = drawingOf(
      "0 HATCH|8 0|10 0|20 0|30 0|2 SOLID|70 1|71 0|91 2|92 3|72 0|73 1|93 4|10 0|20 0|10 9|20 0|10 9|20 "
      "9|10 0|20 "
      "9|97 0|92 2|72 0|73 1|93 4|10 3|20 3|10 6|20 3|10 6|20 6|10 3|20 6|97 0|75 0|76 1");
  EXPECT_EQ(hit(*drawing, 1, 1, 0.1), "HATCH");
  EXPECT_EQ(hit(*drawing, 4.5, 4.5, 0.1), "");
}

TEST(HitTest, WhatLiesInNestedBlocksBelongsToTheirReference) {
  const std::string blocks = block("LEAF", "0 CIRCLE|8 0|10 0|20 0|40 1") + "|" +
                             block("BRANCH", "0 INSERT|8 0|2 LEAF|10 10|20 0|41 2|42 2");
  const auto drawing =
      drawingOf("0 INSERT|8 0|2 LEAF|10 0|20 0|0 INSERT|8 0|2 BRANCH|10 100|20 0|50 90", blocks);
  const std::vector<RecordId>& space = drawing->entitiesOf(drawing->modelSpace());
  const Scene scene = buildScene(*drawing);
  EXPECT_EQ(hitTest(scene, 1, 0, 0.01), space[0]);
  EXPECT_EQ(hitTest(scene, 100, 12, 0.01), space[1]);
  EXPECT_EQ(hitTest(scene, 100, 10, 0.5), kNoRecord);
}

}  // namespace
}  // namespace cad
