// The example drawings as scenes.

#include <map>

#include "embedded/formats/drawing_files.h"
#include "tests/embedded/graphics/scene_fixture.h"

namespace cad {
namespace {

std::map<std::string, int> shown(const Drawing& drawing, const Scene& scene) {
  std::map<std::string, int> counts;
  RecordId last = kNoRecord;
  for (const SceneItem& item : scene.items) {
    if (item.entity != last) ++counts[std::string(drawing.typeName(item.entity))];
    last = item.entity;
  }
  return counts;
}

TEST(Examples, EveryVisibleEntityIsShown) {
  for (const char* name : {"floor-plan.dxf", "machine-part.dxf", "site-plan.dxf"}) {
    const auto loaded = formats::open(std::filesystem::path(EXAMPLES) / name);
    ASSERT_TRUE(loaded.ok()) << name;
    const Drawing& drawing = *loaded.value();
    const Scene scene = buildScene(drawing);
    std::map<std::string, int> expected;
    for (const RecordId id : drawing.entitiesOf(drawing.modelSpace())) {
      const RecordId layer = drawing.find(Table::kLayer, drawing.name(id, Property::kLayer));
      const bool off = drawing.integer(layer, Property::kLayerColor).value_or(7) < 0;
      const bool frozen = (drawing.integer(layer, Property::kStandardFlags).value_or(0) & 1) != 0;
      if (!off && !frozen) ++expected[std::string(drawing.typeName(id))];
    }
    EXPECT_GT(expected.size(), 3u) << name;
    EXPECT_EQ(shown(drawing, scene), expected) << name;
    EXPECT_FALSE(scene.truncated);
  }
}

TEST(Examples, TheHolesOfTheFlangeArePicked) {
  const auto loaded = formats::open(std::filesystem::path(EXAMPLES) / "machine-part.dxf");
  ASSERT_TRUE(loaded.ok());
  const Drawing& drawing = *loaded.value();
  const Scene scene = buildScene(drawing);
  const RecordId hole = hitTest(scene, 55 + 5.5, 0.5, 0.2);
  ASSERT_NE(hole, kNoRecord);
  EXPECT_EQ(drawing.typeName(hole), "INSERT");
  EXPECT_EQ(drawing.text(hole, Property::kBlockName), L"ﾎﾞﾙﾄ穴");
}

}  // namespace
}  // namespace cad
