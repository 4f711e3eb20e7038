// Blocks from a drawing of one format in a drawing of another.

#include <gtest/gtest.h>

#include "tests/embedded/dxf/building_fixture.h"
#include "tests/embedded/memory/memory_drawing.h"

namespace cad {
namespace {

constexpr std::string_view kTables =
    "0 TABLE|2 LAYER|70 2|0 LAYER|2 0|70 0|62 7|6 Continuous|0 LAYER|2 WALL|70 0|62 3|6 Dash|0 ENDTAB|"
    "0 TABLE|2 LTYPE|70 1|0 LTYPE|2 Dash|70 0|3 - -|72 65|73 2|40 3.0|49 2.0|49 -1.0|0 ENDTAB|"
    "0 TABLE|2 STYLE|70 1|0 STYLE|2 KANJI|70 0|40 0.0|41 0.9|50 0.0|71 0|42 2.5|3 txt|4 bigfont|0 ENDTAB|"
    "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 Leaf|70 0|10 1.0|20 2.0|30 0.0|3 Leaf|1 |"
    "0 ARC|100 AcDbEntity|8 WALL|100 AcDbCircle|10 1.0|20 2.0|30 0.0|40 4.0|100 AcDbArc|50 10.0|51 80.0|"
    "0 ENDBLK|8 0";
constexpr std::string_view kEntities =
    "0 LINE|100 AcDbEntity|8 WALL|6 Dash|62 3|370 25|100 AcDbLine|10 1.0|20 2.0|30 0.0|11 3.0|21 4.0|31 0.0|"
    "0 TEXT|100 AcDbEntity|8 0|100 AcDbText|10 5.0|20 6.0|30 0.0|40 2.5|1 ROOM|50 30.0|41 0.8|7 KANJI|72 1|"
    "11 7.0|21 6.0|31 0.0|100 AcDbText|73 2|"
    "0 MTEXT|100 AcDbEntity|8 0|100 AcDbMText|10 5.0|20 6.0|30 0.0|40 2.5|41 60.0|71 5|1 TWO\\PLINES|7 KANJI|"
    "0 CIRCLE|100 AcDbEntity|8 WALL|100 AcDbCircle|10 1.0|20 1.0|30 0.0|40 5.0|"
    "0 LWPOLYLINE|100 AcDbEntity|8 0|100 AcDbPolyline|90 2|70 1|10 0.0|20 0.0|42 1.0|10 9.0|20 0.0|"
    "0 ATTDEF|100 AcDbEntity|8 0|100 AcDbText|10 1.0|20 1.0|30 0.0|40 2.0|1 preset|100 "
    "AcDbAttributeDefinition|"
    "3 Which?|2 TAG|70 8|"
    "0 INSERT|100 AcDbEntity|8 WALL|100 AcDbBlockReference|2 Leaf|10 8.0|20 8.0|30 0.0|41 2.0|42 2.0|43 2.0|"
    "50 45.0";

struct Told {
  std::string out;
  void point(const Point& at) { out += " " + std::to_string(at.x) + "," + std::to_string(at.y); }
  void operator()(const LineGeometry& line) { point(line.from), point(line.to); }
  void operator()(const ArcGeometry& arc) { point(arc.centre), point({arc.radius, arc.start + arc.end}); }
  void operator()(const PolylineGeometry& polyline) {
    for (const auto& vertex : polyline.vertices) point(vertex.at), point({vertex.bulge});
  }
  void operator()(const TextGeometry& text) {
    point(text.at), point({static_cast<double>(text.side), static_cast<double>(text.level)});
    point({text.rotation, text.widthFactor}), point({text.height, text.frameWidth});
  }
  void operator()(const InsertGeometry& insert) {
    point(insert.at), point({insert.scale.y, insert.rotation});
  }
  template <class Other>
  void operator()(const Other&) {
    out += " ?";
  }
};

// What a block holds, a line for each entity.
std::string told(const Drawing& drawing, RecordId block) {
  std::string all;
  for (const RecordId id : drawing.entitiesOf(block)) {
    Told shape{std::string(drawing.typeName(id))};
    std::visit(shape, drawing.geometry(id).shape);
    for (const Property each : {Property::kLayer, Property::kLinetype, Property::kTextStyle,
                                Property::kTextString, Property::kName, Property::kBlockName})
      shape.out += " " + base::toUtf8(drawing.text(id, each).value_or(L"-"));
    for (const Property each : {Property::kColorIndex, Property::kLineWeight})
      shape.out += " " + std::to_string(drawing.integer(id, each).value_or(-999));
    all += shape.out + "\n";
  }
  return all;
}

TEST(BlockCopy, BetweenFormatsWhatBothKnowIsCarriedOver) {
  const auto file = dxf::read(dxf::drawingText("AC1018", kEntities, kTables));
  const auto inMemory = memory::copyOf(*file);
  const auto fileTarget = dxf::modern("0 POINT|5 20|100 AcDbEntity|8 0|100 AcDbPoint", "AC1018");
  const auto memoryTarget = memory::copyOf(*fileTarget);
  const std::string expected = told(*file, file->modelSpace());
  for (const auto& [target, source] : {std::pair(&*fileTarget, &*inMemory), {&*memoryTarget, &*file}}) {
    const std::string before = dxf::saved(*target);
    const auto made = target->defineBlock(L"C", *source);
    ASSERT_TRUE(made.ok()) << base::toUtf8(made.failure().text());
    EXPECT_EQ(told(*target, made.value()), expected);
    const RecordId leaf = target->find(Table::kBlock, L"LEAF");
    EXPECT_EQ(told(*target, leaf), told(*file, file->find(Table::kBlock, L"LEAF")));
    EXPECT_EQ(target->basePoint(leaf).y, 2);
    EXPECT_EQ(target->dashes(target->find(Table::kLinetype, L"DASH")).size(), 2U);
    EXPECT_EQ(target->text(target->find(Table::kLayer, L"WALL"), Property::kLayerLinetype), L"Dash");
    EXPECT_EQ(target->attributeDefinitionsOf(made.value()).size(), 1U);
    while (target->undo()) continue;
    EXPECT_EQ(dxf::saved(*target), before);
  }
  ASSERT_TRUE(fileTarget->defineBlock(L"C", *inMemory).ok());
  const auto again = dxf::read(dxf::saved(*fileTarget));
  EXPECT_EQ(told(*again, again->find(Table::kBlock, L"C")), expected);
}

TEST(BlockCopy, BetweenFormatsAnEntityThatIsNotKnownIsRefusedAndNothingIsLeft) {
  const auto target = dxf::modern("0 POINT|5 20|100 AcDbEntity|8 0|100 AcDbPoint");
  const std::string before = dxf::saved(*target);
  for (const char* entity : {"0 IMAGE|100 AcDbEntity|8 NEW|100 AcDbRasterImage|340 99",
                             "0 DIMENSION|100 AcDbEntity|8 NEW|100 AcDbDimension|2 *D1|70 0",
                             "0 HATCH|100 AcDbEntity|8 NEW|100 AcDbHatch|2 SOLID|70 1|91 0"}) {
    const auto source = memory::copyOf(*dxf::read(dxf::drawingText("AC1018", entity)));
    const auto made = target->defineBlock(L"C", *source);
    ASSERT_FALSE(made.ok()) << entity;
    EXPECT_EQ(made.failure().place,
              base::fromUtf8(std::string(entity).substr(2, made.failure().place.size())));
    EXPECT_EQ(dxf::saved(*target), before);
  }
}

}  // namespace
}  // namespace cad
