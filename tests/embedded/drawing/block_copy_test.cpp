// Blocks from a drawing of one format in a drawing of another.

#include <gtest/gtest.h>

#include <utility>

#include "tests/embedded/dxf/building_fixture.h"
#include "tests/embedded/memory/memory_drawing.h"
#include "tests/embedded/memory/memory_storage.h"

namespace cad {
namespace {

constexpr std::string_view kTables =
    "0 TABLE|2 LAYER|70 2|0 LAYER|2 0|70 0|62 7|6 Continuous|0 LAYER|2 WALL|70 0|62 3|6 Dash|0 ENDTAB|"
    "0 TABLE|2 LTYPE|70 1|0 LTYPE|2 Dash|70 0|3 - -|72 65|73 2|40 3.0|49 2.0|49 -1.0|0 ENDTAB|"
    "0 TABLE|2 STYLE|70 1|0 STYLE|2 KANJI|70 68|40 0.0|41 0.9|50 0.0|71 0|42 2.5|3 txt|4 bigfont|0 ENDTAB|"
    "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 Leaf|70 0|10 1.0|20 2.0|30 0.0|3 Leaf|1 |"
    "0 ARC|100 AcDbEntity|8 WALL|100 AcDbCircle|10 1.0|20 2.0|30 0.0|40 4.0|100 AcDbArc|50 10.0|51 80.0|"
    "0 ENDBLK|8 0";
// What every version holds.
constexpr std::string_view kOldEntities =
    "0 LINE|100 AcDbEntity|8 WALL|6 Dash|62 3|100 AcDbLine|10 1.0|20 2.0|30 0.0|11 3.0|21 4.0|31 0.0|"
    "0 TEXT|100 AcDbEntity|8 0|100 AcDbText|10 5.0|20 6.0|30 0.0|40 2.5|1 ROOM|50 30.0|41 0.8|51 15.0|7 "
    "KANJI|"
    "71 6|72 1|11 7.0|21 6.0|31 0.0|210 0.0|220 0.0|230 -1.0|100 AcDbText|73 2|"
    "0 TEXT|100 AcDbEntity|8 0|100 AcDbText|10 5.0|20 6.0|30 0.0|40 2.5|1 FIT|72 5|11 9.0|21 6.0|31 0.0|"
    "0 CIRCLE|100 AcDbEntity|8 WALL|100 AcDbCircle|10 1.0|20 1.0|30 2.0|40 5.0|210 0.0|220 1.0|230 0.0|"
    "0 POINT|100 AcDbEntity|8 0|100 AcDbPoint|10 1.0|20 2.0|30 3.0|"
    "0 SOLID|100 AcDbEntity|8 0|100 AcDbTrace|10 0.0|20 0.0|30 0.0|11 4.0|21 0.0|31 0.0|12 0.0|22 3.0|32 0.0|"
    "13 4.0|23 3.0|33 0.0|"
    "0 ATTDEF|100 AcDbEntity|8 0|100 AcDbText|10 1.0|20 1.0|30 0.0|40 2.0|1 preset|100 "
    "AcDbAttributeDefinition|3 Which?|2 TAG|70 8|"
    "0 INSERT|100 AcDbEntity|8 WALL|100 AcDbBlockReference|2 Leaf|10 8.0|20 8.0|30 0.0|41 2.0|42 3.0|43 4.0|"
    "50 45.0|70 3|71 2|44 5.0|45 6.0";
constexpr std::string_view kNewEntities =
    "0 LINE|100 AcDbEntity|8 0|60 1|370 25|100 AcDbLine|10 1.0|20 2.0|30 0.0|11 3.0|21 4.0|31 0.0|"
    "0 MTEXT|100 AcDbEntity|8 0|100 AcDbMText|10 5.0|20 6.0|30 0.0|40 2.5|41 60.0|71 5|44 1.5|1 TWO\\PLINES|"
    "7 KANJI|"
    "0 LWPOLYLINE|100 AcDbEntity|8 0|100 AcDbPolyline|90 2|70 1|38 7.0|10 0.0|20 0.0|42 1.0|10 9.0|20 0.0|"
    "0 ELLIPSE|100 AcDbEntity|8 0|100 AcDbEllipse|10 1.0|20 2.0|30 0.0|11 4.0|21 0.0|31 0.0|40 0.5|41 "
    "0.25|42 "
    "3.0|"
    "0 SPLINE|100 AcDbEntity|8 0|100 AcDbSpline|70 4|71 2|72 6|73 3|74 0|40 0.0|40 0.0|40 0.0|40 1.0|40 1.0|"
    "40 1.0|41 1.0|41 2.0|41 1.0|10 0.0|20 0.0|30 0.0|10 5.0|20 5.0|30 0.0|10 9.0|20 0.0|30 0.0";

// What a block holds, a line for each entity.
std::string told(const Drawing& drawing, RecordId block) {
  std::string all;
  for (const RecordId id : drawing.entitiesOf(block)) {
    all += std::string(drawing.typeName(id)) + memory::shown(drawing.geometry(id));
    all += " " + base::toUtf8(drawing.text(id, Property::kBlockName).value_or(L"-"));
    for (const PropertyInfo& info : allProperties()) {
      if (!info.copied) continue;
      const double preset = info.defaultValue;
      all += " " + base::toUtf8(drawing.text(id, info.property).value_or(L"-"));
      all += " " +
             std::to_string(drawing.integer(id, info.property).value_or(static_cast<std::int64_t>(preset)));
      all += " " + std::to_string(drawing.real(id, info.property).value_or(preset));
    }
    all += "\n";
  }
  return all;
}

void expectCopied(std::string_view entities, const Drawing& file, Drawing& fileTarget) {
  SCOPED_TRACE(entities);
  const auto inMemory = memory::copyOf(file), memoryTarget = memory::copyOf(fileTarget);
  const std::string expected = told(file, file.modelSpace());
  for (const auto& [target, source] :
       {std::pair(&fileTarget, &std::as_const(*inMemory)), {&*memoryTarget, &file}}) {
    const std::string before = dxf::saved(*target);
    const auto made = target->defineBlock(L"C", *source);
    ASSERT_TRUE(made.ok()) << base::toUtf8(made.failure().text());
    EXPECT_EQ(told(*target, made.value()), expected);
    while (target->undo()) continue;
    EXPECT_EQ(dxf::saved(*target), before);
  }
  ASSERT_TRUE(fileTarget.defineBlock(L"C", *inMemory).ok());
  const auto again = dxf::read(dxf::saved(fileTarget));
  EXPECT_EQ(told(*again, again->find(Table::kBlock, L"C")), expected);
}

TEST(BlockCopy, BetweenFormatsWhatBothKnowIsCarriedOver) {
  const auto file = dxf::read(dxf::drawingText("AC1018", kOldEntities, kTables));
  for (const auto& target :
       {dxf::modern("0 POINT|5 20|100 AcDbEntity|8 0|100 AcDbPoint", "AC1018"), dxf::old("0 POINT|8 0")}) {
    expectCopied(kOldEntities, *file, *target);
    const RecordId leaf = target->find(Table::kBlock, L"LEAF"), wall = target->find(Table::kLayer, L"WALL");
    EXPECT_EQ(told(*target, leaf), told(*file, file->find(Table::kBlock, L"LEAF")));
    EXPECT_EQ(target->basePoint(leaf).y, 2);
    EXPECT_EQ(target->dashes(target->find(Table::kLinetype, L"DASH")).size(), 2U);
    EXPECT_EQ(target->text(wall, Property::kLayerLinetype), L"Dash");
    EXPECT_EQ(target->integer(wall, Property::kLayerColor), 3);
    const RecordId style = target->find(Table::kTextStyle, L"KANJI");
    EXPECT_EQ(target->text(style, Property::kBigFontFile), L"bigfont");
    EXPECT_EQ(target->integer(style, Property::kStandardFlags), TextStyleFlag::kVertical);
    EXPECT_EQ(target->attributeDefinitionsOf(target->find(Table::kBlock, L"C")).size(), 1U);
  }
  const auto newer = dxf::read(dxf::drawingText("AC1018", kNewEntities, kTables));
  const auto target = dxf::modern("0 POINT|5 20|100 AcDbEntity|8 0|100 AcDbPoint", "AC1018");
  expectCopied(kNewEntities, *newer, *target);
  EXPECT_NE(dxf::saved(*target).find("AcDbSpline\n 70\n4\n"), std::string::npos) << "rational";
}

TEST(BlockCopy, BetweenFormatsAnEntityThatIsNotKnownIsRefusedAndNothingIsLeft) {
  const auto target = dxf::modern("0 POINT|5 20|100 AcDbEntity|8 0|100 AcDbPoint");
  const std::string before = dxf::saved(*target);
  for (const char* entity : {"0 IMAGE|100 AcDbEntity|8 NEW|100 AcDbRasterImage|340 99",
                             "0 DIMENSION|100 AcDbEntity|8 NEW|100 AcDbDimension|2 *D1|70 0",
                             "0 LINE|100 AcDbEntity|8 NEW|100 AcDbLine|39 2.0|10 0.0|20 0.0|11 1.0|21 0.0",
                             "0 LWPOLYLINE|100 AcDbEntity|8 NEW|100 AcDbPolyline|90 1|43 0.5|10 0.0|20 0.0",
                             "0 HATCH|100 AcDbEntity|8 NEW|100 AcDbHatch|2 SOLID|70 1|91 0"}) {
    const auto source = memory::copyOf(*dxf::read(dxf::drawingText("AC1018", entity)));
    const auto made = target->defineBlock(L"C", *source);
    ASSERT_FALSE(made.ok()) << entity;
    EXPECT_EQ(made.failure().place,
              base::fromUtf8(std::string(entity).substr(2, made.failure().place.size())));
    EXPECT_EQ(dxf::saved(*target), before);
  }
}

TEST(BlockCopy, NothingIsAddedToABlockWithoutEnd) {
  const auto drawing =
      dxf::read(dxf::groups("0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 OPEN|70 0|10 0.0|20 0.0|0 ENDSEC|"
                            "0 SECTION|2 ENTITIES|0 LINE|5 20|8 0|0 ENDSEC|0 EOF"));
  const std::string before = dxf::saved(*drawing);
  const RecordId block = drawing->find(Table::kBlock, L"OPEN");
  EXPECT_FALSE(drawing->storage().addEntity(*drawing, block, "LINE", {LineGeometry{}}).ok());
  EXPECT_FALSE(drawing->undo());
  EXPECT_EQ(dxf::saved(*drawing), before);
}

}  // namespace
}  // namespace cad
