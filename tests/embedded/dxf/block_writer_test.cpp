#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

std::vector<Shape> shapes() {
  return {LineShape{{-1, 0}, {0, 0}}, CircleShape{{0, 0}, 0.5},
          PolylineShape{{{-0.25, 0, 1}, {0.25, 0, 1}}, 0.5, true}};
}

TEST(BlockWriter, OldFilesGetPlainRecordsInASectionOfTheirOwn) {
  auto drawing = old("0 LINE|8 0");
  const std::string original = saved(*drawing);
  const auto made = drawing->defineBlock(L"_DOT", shapes());
  ASSERT_TRUE(made.ok());
  EXPECT_EQ(typesIn(*drawing, made.value()), "LINE CIRCLE POLYLINE");
  const std::string text = saved(*drawing);
  EXPECT_EQ(text.find("AcDb"), std::string::npos);
  EXPECT_EQ(text.find("BLOCK_RECORD"), std::string::npos);
  EXPECT_LT(text.find("BLOCKS"), text.find("ENTITIES"));
  auto again = read(text);
  EXPECT_EQ(typesIn(*again, block(*again, L"_dot")), "LINE CIRCLE POLYLINE");
  EXPECT_EQ(again->subRecordsOf(again->entitiesOf(block(*again, L"_DOT")).back()).size(), 3u);
  expectUndone(*drawing, original);
}

TEST(BlockWriter, NewFilesGetATableEntryThatOwnsTheContent) {
  auto drawing = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
  const std::string original = saved(*drawing);
  ASSERT_TRUE(drawing->defineBlock(L"_Dot", shapes()).ok());
  const std::string text = saved(*drawing);
  EXPECT_EQ(
      lastRecord(text, "BLOCK_RECORD"),
      groups("0 BLOCK_RECORD|5 400|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 _Dot|340 0"));
  EXPECT_EQ(
      lastRecord(text, "BLOCK"),
      groups("0 BLOCK|5 401|330 400|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 _Dot|70 0|10 0.0|20 0.0|30 0.0|"
             "3 _Dot|1 "));
  EXPECT_EQ(
      lastRecord(text, "CIRCLE"),
      groups("0 CIRCLE|5 403|330 400|100 AcDbEntity|8 0|6 ByBlock|62 0|370 -2|100 AcDbCircle|10 0.0|20 0.0|"
             "30 0.0|40 0.5"));
  EXPECT_NE(text.find("LWPOLYLINE"), std::string::npos);
  expectUndone(*drawing, original);
}

BlockEntity filledText() {
  TextGeometry text;
  text.at = {1, 2, 0};
  text.height = 2.5;
  text.side = TextGeometry::Side::kCentre;
  text.level = TextGeometry::Level::kMiddle;
  text.multiline = true;
  text.fill = TextGeometry::Fill::kOwnColor;
  text.fillColor = 97;
  text.contents = L"\\A1;5";
  return {"MTEXT", {text}, L"0", {}, {}, 0, -1, 0x01000000, {}};
}

TEST(BlockWriter, ContentMadeAnewIsWrittenAsEachVersionHasIt) {
  constexpr std::string_view kText = "|100 AcDbMText|10 1.0|20 2.0|30 0.0|40 2.5|41 0.0|";
  constexpr std::string_view kOldFill =
      "|1001 ACAD|1000 MTEXTBEGIN|1070 73|1070 1|1070 44|1040 1.0|1070 74|1070 0|1000 MTEXTEND|1000 "
      "ACAD_MTEXT_BBRT|1070 91|1071 1|1070 46|1040 1.25|1070 64|1071 -1023410079|1070 65|1000  |1070 66|1000 "
      " "
      "|1070 442|1071 0|1000 ACAD_MTEXT_BERT";
  constexpr std::string_view kFill = "|90 1|63 97|45 1.25|441 0";
  struct Version {
    std::string_view version, before, after;
  };
  const Version versions[] = {{"AC1014", "62 0", kOldFill},
                              {"AC1015", "62 0", kOldFill},
                              {"AC1018", "62 0|440 16777216", kFill},
                              {"AC1032", "62 0|440 16777216", kFill}};
  for (const auto& [version, before, after] : versions) {
    auto drawing = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine", version);
    const RecordId first = drawing->defineBlock(L"B", shapes()).value();
    const std::string original = saved(*drawing);
    const BlockEntity text = filledText();
    ASSERT_TRUE(drawing->redefineContents(first, std::span(&text, 1)).ok());
    const std::string record = lastRecord(saved(*drawing), "MTEXT");
    std::string expected = "|100 AcDbEntity|8 0|";
    expected.append(before)
        .append(kText)
        .append(version == "AC1032" ? "46 0.0|" : "")
        .append("71 5|72 1|1 \\A1;5");
    expected.append(version == "AC1014" ? "" : "|73 1|44 1.0").append(after);
    EXPECT_TRUE(record.ends_with(groups(expected.substr(1)))) << version << record;
    auto again = read(saved(*drawing));
    const auto geometry = again->geometry(again->entitiesOf(block(*again, L"B")).back());
    EXPECT_EQ(std::get<TextGeometry>(geometry.shape).fillColor, 97) << version;
    drawing->undo();
    EXPECT_EQ(saved(*drawing), original);
    BlockEntity unknown = text;
    unknown.type = "NOSUCH";
    unknown.geometry.shape = LineGeometry{};
    EXPECT_FALSE(drawing->redefineContents(first, std::span(&unknown, 1)).ok());
    EXPECT_FALSE(drawing->redefineContents(drawing->modelSpace(), std::span(&text, 1)).ok());
    EXPECT_EQ(saved(*drawing), original);
  }
}

TEST(BlockWriter, RedefinitionKeepsTheBlockAndReplacesItsContent) {
  auto drawing = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
  const RecordId first = drawing->defineBlock(L"B", shapes()).value();
  const std::string before = saved(*drawing);
  const Shape solid = SolidShape{{0, 0}, {1, 0}, {0, 1}, {1, 1}};
  EXPECT_EQ(drawing->defineBlock(L"b", std::span(&solid, 1)).value(), first);
  auto again = read(saved(*drawing));
  EXPECT_EQ(typesIn(*again, block(*again, L"B")), "SOLID");
  EXPECT_TRUE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
  EXPECT_FALSE(drawing->defineBlock(L"*Model_Space", shapes()).ok());
  EXPECT_FALSE(drawing->defineBlock(L"", shapes()).ok());
  EXPECT_EQ(saved(*drawing), before);
}

TEST(BlockWriter, ExternalReferencesAreNotRedefined) {
  auto drawing = modern("0 LINE|5 20|8 0");
  const std::string text = replaced(
      saved(*drawing), groups("2 BLOCKS"),
      groups("2 BLOCKS|0 BLOCK|5 30|8 0|2 XREF|70 4|10 0.0|20 0.0|30 0.0|3 XREF|1 x.dwg|0 ENDBLK|5 31|8 0"));
  auto other = read(text);
  EXPECT_FALSE(other->defineBlock(L"XREF", shapes()).ok());
  EXPECT_EQ(saved(*other), text);
}

TEST(Insert, StandsInItsSpaceOnTheCurrentLayer) {
  auto drawing = modern("0 LINE|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbLine");
  EXPECT_FALSE(drawing->addInsert(drawing->modelSpace(), {block(*drawing, L"B"), {}}).ok());
  ASSERT_TRUE(drawing->defineBlock(L"B", shapes()).ok());
  const std::string original = saved(*drawing);
  const RecordId defined = block(*drawing, L"B");
  const auto model = drawing->addInsert(drawing->modelSpace(), {defined, {1, 2, 0}, 2, 90});
  ASSERT_TRUE(model.ok());
  EXPECT_EQ(drawing->lastEntity(), model.value());
  EXPECT_NE(saved(*drawing).find(
                groups("8 WALL|100 AcDbBlockReference|2 B|10 1.0|20 2.0|30 0.0|41 2.0|42 2.0|43 2.0|"
                       "50 90.0|0 ENDSEC")),
            std::string::npos);
  const auto paper = drawing->addInsert(drawing->paperSpace(), {defined, {}});
  ASSERT_TRUE(paper.ok());
  auto again = read(saved(*drawing));
  EXPECT_EQ(typesIn(*again, again->paperSpace()), "INSERT");
  EXPECT_FALSE(drawing->addInsert(drawing->modelSpace(), {defined, {}, 0}).ok());
  EXPECT_TRUE(drawing->undo());
  EXPECT_TRUE(drawing->undo());
  EXPECT_EQ(saved(*drawing), original);
}

}  // namespace
}  // namespace cad::dxf
