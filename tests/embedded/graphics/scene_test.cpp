#include "embedded/graphics/scene.h"

#include <cmath>

#include "tests/embedded/graphics/scene_fixture.h"

namespace cad {
namespace {

constexpr const char* kLine = "0 LINE|8 0|10 0|20 0|11 2|21 1";

TEST(Scene, ShapesLieWhereTheirEntitiesSay) {
  struct Case {
    const char* entity;
    const char* box;
  };
  const Case cases[] = {
      {"0 LINE|8 0|10 1|20 2|30 9|11 4|21 1|31 9", "1,1 4,2"},
      {"0 POINT|8 0|10 3|20 4|30 0", "3,4 3,4"},
      {"0 CIRCLE|8 0|10 5|20 5|30 0|40 2", "3,3 7,7"},
      {"0 ARC|8 0|10 0|20 0|30 0|40 2|50 350|51 100", "-0.35,-0.35 2,2"},
      // Seen from below: the x axis is turned over.
      {"0 ARC|8 0|10 5|20 0|30 0|40 2|50 0|51 90|210 0|220 0|230 -1", "-7,0 -5,2"},
      {"0 ELLIPSE|8 0|10 0|20 0|30 0|11 0|21 4|31 0|40 0.5|41 0|42 6.283185307179586", "-2,-4 2,4"},
      {"0 SOLID|8 0|10 0|20 0|11 2|21 0|12 0|22 3|13 2|23 3", "0,0 2,3"},
      {"0 LWPOLYLINE|8 0|90 2|70 0|10 0|20 0|42 1|10 4|20 0", "0,-2 4,0"},
      {"0 POLYLINE|8 0|66 1|70 1|10 0|20 0|30 0|0 VERTEX|8 0|10 0|20 0|0 VERTEX|8 0|10 2|20 0|42 -1|0 "
       "VERTEX|8 0|10 2|20 2|0 SEQEND|8 0",
       "0,0 2,2"},
      {"0 POLYLINE|8 0|66 1|70 64|71 3|72 1|10 0|20 0|30 0|0 VERTEX|8 0|10 0|20 0|70 192|0 VERTEX|8 0|10 "
       "5|20 "
       "0|70 192|0 VERTEX|8 0|10 5|20 5|70 192|0 VERTEX|8 0|10 9|20 9|70 128|71 1|72 2|73 3|0 SEQEND|8 0",
       "0,0 5,5"},
      {"0 3DFACE|8 0|10 0|20 0|11 1|21 0|12 1|22 4|13 0|23 4|70 4", "0,0 1,4"},
      {"0 SPLINE|8 0|70 0|71 1|72 4|73 2|40 0|40 0|40 1|40 1|10 1|20 1|30 0|10 6|20 2|30 0", "1,1 6,2"},
      {"0 LEADER|8 0|3 STANDARD|10 1|20 1|30 0|10 3|20 5|30 0", "1,1 3,5"},
  };
  for (const Case& each : cases) {
    const std::string_view entity = each.entity;
    const bool isMesh = entity.starts_with("0 3DFACE") || entity.starts_with("0 POLYLINE|8 0|66 1|70 64");
    if (testsDwg() && isMesh) continue;  // which are not copied
    const Scene scene = sceneOf(entity);
    ASSERT_EQ(scene.items.size(), 1u) << entity;
    EXPECT_EQ(text(scene.items[0].box), each.box) << each.entity;
    EXPECT_EQ(text(scene.extents), each.box);
  }
}

TEST(Scene, TypesThatNobodyDrawsAreLeftOut) {
  const Scene scene = sceneOf(
      "0 XLINE|8 0|10 0|20 0|11 1|21 0|0 WIDGET|8 0|10 1|20 1|0 CIRCLE|8 0|10 0|20 0|40 0|0 POINT|8 0|10 "
      "5|20 "
      "6");
  EXPECT_EQ(scene.items.size(), 1u);
  EXPECT_EQ(text(scene.extents), "5,6 5,6");
}

TEST(Scene, NumbersThatAreNoneSpoilNothing) {
  const Scene scene = sceneOf(
      "0 LINE|8 0|10 1e300|20 nan|11 1e308|21 1e308|0 LINE|8 0|10 0|20 0|11 1|21 1|0 LWPOLYLINE|8 0|90 "
      "99|70 1|0 SPLINE|8 0|71 300|10 1|20 1|0 HATCH|8 0|70 1|91 5|92 2|72 1|73 1|93 4000000|10 0|20 0");
  int sound = 0;
  for (const SceneItem& item : scene.items) {
    EXPECT_TRUE(std::isfinite(item.box.right)) << item.entity;
    sound += text(item.box) == "0,0 1,1";
  }
  EXPECT_EQ(sound, 1) << "the line beside them";
}

TEST(Scene, LayersAndColours) {
  const auto drawing = drawingOf(
      "0 LINE|8 WALL|10 0|20 0|11 1|21 0|0 LINE|8 WALL|62 4|10 0|20 0|11 1|21 0|0 LINE|8 WALL|62 0|10 0|20 "
      "0|11 "
      "1|21 0|0 LINE|8 OFF|10 0|20 0|11 1|21 0|0 LINE|8 ICE|10 0|20 0|11 1|21 0|0 LINE|8 DOOR|60 1|10 0|20 "
      "0|11 "
      "1|21 0",
      {}, "AC1015");
  const Scene scene = buildScene(*drawing);
  ASSERT_EQ(scene.items.size(), 3u);
  EXPECT_EQ(scene.items[0].color, 1);
  EXPECT_EQ(scene.items[1].color, 4);
  EXPECT_EQ(scene.items[2].color, 7);
  EXPECT_EQ(drawing->typeName(scene.items[2].entity), "LINE");
}

TEST(Scene, ErasedEntitiesAndTheOtherSpaceAreLeftOut) {
  const auto drawing = drawingOf("0 LINE|8 0|10 0|20 0|11 1|21 0|0 LINE|8 0|67 1|10 5|20 5|11 6|21 6");
  EXPECT_EQ(text(buildScene(*drawing).extents), "0,0 1,0");
  const std::uint64_t before = drawing->revision();
  ASSERT_TRUE(drawing->setErased(dxf::entity(*drawing, "LINE"), true).ok());
  EXPECT_NE(drawing->revision(), before);
  EXPECT_TRUE(buildScene(*drawing).items.empty());
  ASSERT_TRUE(drawing->undo());
  ASSERT_TRUE(drawing->setHeaderVariable("TILEMODE", std::int64_t{0}).ok());
  EXPECT_EQ(text(buildScene(*drawing).extents), "5,5 6,6");
}

TEST(Scene, ReferencesPlaceTheirBlocks) {
  const std::string leaf = block("LEAF", kLine, 1, 1);
  EXPECT_EQ(text(sceneOf("0 INSERT|8 0|2 LEAF|10 10|20 20", leaf).extents), "9,19 11,20");
  EXPECT_EQ(text(sceneOf("0 INSERT|8 0|2 leaf|10 10|20 20|41 2|42 -3", leaf).extents), "8,20 12,23");
  EXPECT_EQ(text(sceneOf("0 INSERT|8 0|2 LEAF|10 10|20 20|50 90", leaf).extents), "10,19 11,21");
  EXPECT_EQ(text(sceneOf("0 INSERT|8 0|2 LEAF|10 0|20 0|210 0|220 0|230 -1", leaf).extents), "-1,-1 1,0");
  const Scene array = sceneOf("0 INSERT|8 0|2 LEAF|10 1|20 1|70 3|71 2|44 10|45 5|50 90", leaf);
  EXPECT_EQ(array.items.size(), 6u);
  EXPECT_EQ(text(array.extents), "-4,0 2,22");
  EXPECT_TRUE(sceneOf("0 INSERT|8 0|2 NOWHERE|10 10|20 20", leaf).items.empty());
}

TEST(Scene, CirclesInUnevenReferencesBecomeEllipses) {
  const std::string wheel = block("WHEEL", "0 CIRCLE|8 0|10 0|20 0|40 1");
  const Scene even = sceneOf("0 INSERT|8 0|2 WHEEL|10 0|20 0|41 -3|42 3|50 30", wheel);
  EXPECT_EQ(even.points.size(), 2u);
  EXPECT_EQ(text(even.extents), "-3,-3 3,3");
  const Scene uneven = sceneOf("0 INSERT|8 0|2 WHEEL|10 0|20 0|41 4|42 1", wheel);
  EXPECT_EQ(text(uneven.extents), "-4,-1 4,1");
  for (const ScenePoint& point : uneven.points) {
    EXPECT_NEAR(point.x * point.x / 16 + point.y * point.y, 1, 1e-6);
  }
}

TEST(Scene, NestedBlocksTakeLayerAndColourFromTheirReferences) {
  // In LEAF: on layer 0 by layer, on layer 0 by block, on WALL by layer, in colour 5.
  const std::string blocks =
      block("LEAF",
            "0 LINE|8 0|10 0|20 0|11 1|21 0|0 LINE|8 0|62 0|10 0|20 0|11 1|21 0|0 LINE|8 WALL|10 0|20 0|11 "
            "1|21 0|0 LINE|8 WALL|62 5|10 0|20 0|11 1|21 0") +
      "|" + block("BRANCH", "0 INSERT|8 0|62 0|2 LEAF|10 0|20 0");
  const auto colors = [&](const char* reference) {
    std::string found;
    for (const SceneItem& item : sceneOf(reference, blocks).items) found += std::to_string(item.color) + " ";
    return found;
  };
  EXPECT_EQ(colors("0 INSERT|8 DOOR|2 LEAF|10 0|20 0"), "3 3 1 5 ");
  EXPECT_EQ(colors("0 INSERT|8 DOOR|62 2|2 LEAF|10 0|20 0"), "3 2 1 5 ");
  EXPECT_EQ(colors("0 INSERT|8 DOOR|62 2|2 BRANCH|10 0|20 0"), "3 2 1 5 ");
  EXPECT_EQ(colors("0 INSERT|8 0|2 BRANCH|10 0|20 0"), "7 7 1 5 ");
  // A reference on a layer that is off hides what lies on layer 0, on a frozen one everything.
  EXPECT_EQ(colors("0 INSERT|8 OFF|2 BRANCH|10 0|20 0"), "1 5 ");
  EXPECT_EQ(colors("0 INSERT|8 ICE|2 BRANCH|10 0|20 0"), "");
}

TEST(Scene, BlocksInsideThemselvesAndWildArraysEnd) {
  const std::string loop = block("A", std::string(kLine) + "|0 INSERT|8 0|2 B|10 1|20 0") + "|" +
                           block("B", "0 INSERT|8 0|2 A|10 1|20 0|0 CIRCLE|8 0|10 0|20 0|40 1");
  EXPECT_EQ(sceneOf("0 INSERT|8 0|2 A|10 0|20 0", loop).items.size(), 2u);
  std::string wild = block("N0", "0 POINT|8 OFF|10 0|20 0");
  for (int i = 1; i < 6; ++i) {
    wild += "|" + block("N" + std::to_string(i), "0 INSERT|8 0|2 N" + std::to_string(i - 1) +
                                                     "|10 0|20 0|70 30000|71 30000|0 POINT|8 0|10 0|20 0");
  }
  const Scene scene = sceneOf("0 INSERT|8 0|2 N5|10 0|20 0|0 LINE|8 0|10 7|20 7|11 8|21 8", wild);
  EXPECT_TRUE(scene.truncated);
  EXPECT_EQ(scene.extents.right, 8);
}

TEST(Scene, AttributesAreShownAndTheirDefinitionsAreNot) {
  const std::string sheet =
      block("SHEET",
            "0 ATTDEF|8 0|10 0|20 0|40 1|1 default|3 ask|2 TAG|70 0|0 ATTDEF|8 0|10 0|20 0|40 1|1 "
            "fixed|3 |2 TAG2|70 2");
  const Scene scene = sceneOf(
      "0 INSERT|8 0|66 1|2 SHEET|10 0|20 0|0 ATTRIB|8 WALL|10 5|20 5|40 2|1 値|2 TAG|70 0|0 ATTRIB|8 WALL|10 "
      "5|20 "
      "9|40 2|1 hidden|2 TAG|70 1|0 SEQEND|8 0",
      sheet);
  ASSERT_EQ(scene.texts.size(), 2u);
  EXPECT_EQ(scene.texts[0].text, L"fixed");
  EXPECT_EQ(scene.items[1].color, 1);
  EXPECT_EQ(scene.items[0].entity, scene.items[1].entity);
}

TEST(Scene, DimensionsAreShownByTheirBlocks) {
  const std::string picture = block("*D1", "0 LINE|8 0|62 0|10 3|20 4|11 9|21 4", 100, 100);
  const Scene scene = sceneOf("0 DIMENSION|8 DOOR|62 2|2 *D1|10 50|20 50|70 0", picture);
  ASSERT_EQ(scene.items.size(), 1u);
  EXPECT_EQ(text(scene.extents), "3,4 9,4");
  EXPECT_EQ(scene.items[0].color, 2);
  EXPECT_TRUE(sceneOf("0 DIMENSION|8 OFF|2 *D1|10 50|20 50|70 0", picture).items.empty());
}

TEST(Scene, HatchesAreTheirBoundaries) {
  if (testsDwg()) GTEST_SKIP() << "boundaries with edges are not copied";
  const char* polygon =
      "0 HATCH|8 0|10 0|20 0|30 0|2 SOLID|70 1|71 0|91 2|92 3|72 0|73 1|93 4|10 0|20 0|10 9|20 0|10 9|20 "
      "9|10 0|20 "
      "9|97 0|92 16|93 3|72 1|10 3|20 3|11 6|21 3|72 2|10 3|20 3|40 3|50 270|51 360|73 0|72 1|10 3|20 6|11 "
      "3|21 "
      "3|97 0|75 0|76 1|98 1|10 1|20 1";
  const Scene scene = sceneOf(polygon);
  ASSERT_EQ(scene.items.size(), 1u);
  EXPECT_EQ(scene.items[0].kind, SceneItemKind::kFill);
  ASSERT_EQ(scene.loops.size(), 2u);
  SceneBox hole;
  std::vector<ScenePoint> outline;
  flatten(scene.pointsOf(scene.loops[1]), true, 0.001, outline);
  for (const ScenePoint& point : outline) hole.add(point.x, point.y);
  EXPECT_EQ(text(hole), "3,3 6,6");
  // The quarter circle bulges away from its centre.
  EXPECT_EQ(hitTest(scene, 4.9, 4.9, 0.01), kNoRecord);
  EXPECT_EQ(hitTest(scene, 5.5, 5.5, 0.01), scene.items[0].entity);
}

}  // namespace
}  // namespace cad
