#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

TEST(NewRecords, OldFilesGetATableWithPlainRecords) {
  auto drawing = old("0 LINE|8 0|62 1");
  const std::string original = saved(*drawing);
  const auto layer = drawing->addTableRecord(Table::kLayer, L"\x58C1");
  ASSERT_TRUE(layer.ok());
  const std::string text = saved(*drawing);
  EXPECT_EQ(lastRecord(text, "LAYER"), groups("0 LAYER|2 \x95\xC7|70 0|62 7|6 CONTINUOUS"));
  EXPECT_LT(text.find("TABLES"), text.find("ENTITIES"));
  EXPECT_EQ(read(text)->find(Table::kLayer, std::wstring_view(L"\x58C1")) == kNoRecord, false);
  expectUndone(*drawing, original);
}

TEST(NewRecords, NewFilesGetHandlesOwnersAndTheCount) {
  auto drawing = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
  const std::string original = saved(*drawing);
  ASSERT_TRUE(drawing->addTableRecord(Table::kLayer, L"NEW").ok());
  const std::string text = saved(*drawing);
  const std::string record = lastRecord(text, "LAYER");
  EXPECT_EQ(record,
            groups("0 LAYER|5 400|330 2|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 NEW|70 0|62 7|"
                   "6 Continuous|370 -3|390 F"));
  EXPECT_NE(text.find(groups("2 LAYER|5 2|330 0|100 AcDbSymbolTable|70 2")), std::string::npos);
  auto again = read(text);
  const auto next = storageOf(*again).takeHandle(*again);
  ASSERT_TRUE(next.has_value());
  EXPECT_GT(*next, Handle{0x400});
  expectUndone(*drawing, original);
}

TEST(NewRecords, DimensionStylesCarryTheirHandleIn105AndTheOldNamesBefore2000) {
  auto drawing = modern("0 LINE|5 20|8 0");
  ASSERT_TRUE(drawing->addTableRecord(Table::kDimStyle, L"D").ok());
  const std::string style = lastRecord(saved(*drawing), "DIMSTYLE");
  EXPECT_NE(style.find(groups("105 400|330 A")), std::string::npos);
  EXPECT_NE(style.find(groups("340 11")), std::string::npos);

  auto before = old("0 LINE|8 0|62 1");
  ASSERT_TRUE(before->addTableRecord(Table::kDimStyle, L"D").ok());
  const std::string oldStyle = lastRecord(saved(*before), "DIMSTYLE");
  EXPECT_NE(oldStyle.find(groups("5 |6 |7 ")), std::string::npos);
  EXPECT_EQ(oldStyle.find("340\n"), std::string::npos);
  EXPECT_EQ(oldStyle.find("271\n"), std::string::npos);
}

TEST(NewRecords, RefusesNamesThatTablesCannotHave) {
  auto drawing = modern("0 LINE|5 20|8 0");
  const std::string original = saved(*drawing);
  for (const wchar_t* name : {L"", L"A*B", L"A,B", L"A\nB", L"A=B"})
    EXPECT_FALSE(drawing->addTableRecord(Table::kLayer, name).ok());
  ASSERT_TRUE(drawing->addTableRecord(Table::kTextStyle, L"S").ok());
  EXPECT_FALSE(drawing->addTableRecord(Table::kTextStyle, L"s").ok());
  EXPECT_FALSE(drawing->addTableRecord(Table::kView, L"V").ok());
  while (drawing->undo()) {
  }
  EXPECT_EQ(saved(*drawing), original);
}

TEST(NewRecords, LinetypePatternsReplaceTheWholePattern) {
  auto drawing = modern("0 LINE|5 20|8 0");
  const auto linetype = drawing->addTableRecord(Table::kLinetype, L"L");
  ASSERT_TRUE(linetype.ok());
  const Dash first[] = {{1}, {-0.5}, {0}, {-0.5}};
  const Dash second[] = {{2}, {-1}};
  ASSERT_TRUE(drawing->setDashes(linetype.value(), first).ok());
  ASSERT_TRUE(drawing->setDashes(linetype.value(), second).ok());
  EXPECT_NE(saved(*drawing).find(groups("3 |72 65|73 2|40 3.0|49 2.0|74 0|49 -1.0|74 0|0 ENDTAB")),
            std::string::npos);
  const Dash thirteen[13] = {};
  EXPECT_FALSE(drawing->setDashes(linetype.value(), thirteen).ok());
}

TEST(NewRecords, HandlesStayDistinctWhenTheFilesNextOneIsTheLargest) {
  auto drawing =
      read(groups("0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|9 $HANDSEED|5 FFFFFFFFFFFFFFFF|0 ENDSEC|"
                  "0 SECTION|2 ENTITIES|0 LINE|5 1FF|100 AcDbEntity|8 0|100 AcDbLine|0 ENDSEC|0 EOF"));
  const Handle first = storageOf(*drawing).takeHandle(*drawing).value();
  EXPECT_EQ(first, Handle{0x200});
  EXPECT_EQ(storageOf(*drawing).takeHandle(*drawing), Handle{0x201});
  const auto again = read(saved(*drawing));
  EXPECT_GT(storageOf(*again).takeHandle(*again), Handle{0x201})
      << "the header has a number that can be counted on";
}

TEST(NewRecords, HandlesAreLargerThanThoseOfTheFileWhereverTheseStand) {
  struct Row {
    std::string_view entities;
    Handle next;
  };
  constexpr Row kRows[] = {
      {"0 LINE|5 FFF|8 0", 0x1000},
      {"0 LINE|8 0|62 1|5  fff |10 0.0|0 LINE|5 20|8 0", 0x1000},
      {"0 LINE|102 {X|5 9999|102 }|5 FFF|8 0", 0x1000},
      {"0 LINE|5 FFF|5 9999|8 0|1001 APP|5 9999", 0x1000},
      {"0 LINE|8 0|1001 APP|1000 x|5 9999", 0x400},
      {"0 LINE|5 no|5 9999|8 0", 0x400},
      {"0 POLYLINE|5 20|8 0|0 VERTEX|5 FFF|8 0|0 SEQEND|5 21|8 0|0 LINE|5 FFFFFFFFFFFFFFF0|8 0", 0x1000},
  };
  for (const Row& row : kRows) {
    const auto drawing = modern(row.entities);
    EXPECT_EQ(storageOf(*drawing).takeHandle(*drawing), row.next) << row.entities;
  }
  const auto styles = read(drawingText("AC1015", "0 LINE|5 20|8 0",
                                       "0 TABLE|2 DIMSTYLE|5 A|70 1|0 DIMSTYLE|105 FFF|5 9999|2 D|0 ENDTAB"));
  EXPECT_EQ(storageOf(*styles).takeHandle(*styles), Handle{0x1000});
}

}  // namespace
}  // namespace cad::dxf
