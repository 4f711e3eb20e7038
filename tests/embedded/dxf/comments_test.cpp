// A drawing with a comment in front of every group reads and changes as the one without, and keeps them all.
#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

constexpr std::string_view kEntities =
    "0 TEXT|5 20|330 1F|102 {X|8 no|102 }|100 AcDbEntity|8 WALL|62 3|420 255|430 RAL|100 AcDbText|10 1.0|20 "
    "2.0|40 2.5|1 t|100 AcDbText|"
    "0 MTEXT|5 21|100 AcDbEntity|8 WALL|100 AcDbMText|10 0.0|20 0.0|40 2.5|3 one |1 two|11 1.0|21 0.0|"
    "0 DIMENSION|5 22|100 AcDbEntity|8 WALL|100 AcDbDimension|2 *D1|3 Standard|70 0|1001 ACAD|1000 DSTYLE|"
    "1002 {|1070 140|1040 3.5|1070 77|1070 1|1002 }|"
    "0 HATCH|5 23|100 AcDbEntity|8 WALL|100 AcDbHatch|2 SOLID|70 1|91 1|92 2|72 0|73 1|93 3|10 0.0|20 0.0|10 "
    "9.0|20 0.0|10 9.0|20 9.0|97 0|75 0|76 1|98 0|"
    "0 LEADER|5 24|100 AcDbEntity|8 WALL|100 AcDbLeader|3 Standard|76 2|10 0.0|20 0.0|10 5.0|20 5.0";

// The groups of `text` with `insert` in front of each, the first included.
std::string commented(const std::string& text, const std::string& insert) {
  std::string out;
  int line = 0;
  for (std::size_t at = 0; at < text.size(); ++line) {
    const std::size_t end = text.find('\n', at) + 1;
    if (line % 2 == 0) out += insert;
    out.append(text, at, end - at);
    at = end;
  }
  return out;
}

std::string without(std::string text, const std::string& comment, int& count) {
  for (std::size_t at = text.find(comment); at != std::string::npos; at = text.find(comment, at), ++count)
    text.erase(at, comment.size());
  return text;
}

// Of each kind of change one, at every place where a record's groups are looked up or replaced.
void change(Drawing& drawing) {
  const RecordId text = entity(drawing, "TEXT"), mtext = entity(drawing, "MTEXT");
  const RecordId dimension = entity(drawing, "DIMENSION"), leader = entity(drawing, "LEADER");
  EXPECT_TRUE(drawing.setInteger(text, Property::kColorIndex, 5).ok());
  EXPECT_TRUE(drawing.setInteger(text, Property::kLineWeight, 25).ok());
  EXPECT_TRUE(drawing.setReal(text, Property::kTextHeight, 7).ok());
  EXPECT_TRUE(drawing.setText(mtext, Property::kTextString, L"three").ok());
  EXPECT_TRUE(drawing.setReal(mtext, Property::kRotation, 90).ok());
  EXPECT_TRUE(drawing.setDimVariable(dimension, dimRow("DIMTAD"), std::int64_t{0}).ok());
  EXPECT_TRUE(drawing.removeDimOverride(dimension, dimRow("DIMTXT")).ok());
  EXPECT_TRUE(drawing.setDimVariable(leader, dimRow("DIMTXT"), 2.0).ok());
  const RecordId style = drawing.find(Table::kTextStyle, std::wstring_view(L"Standard"));
  EXPECT_TRUE(drawing.setText(style, Property::kTypeface, L"Arial").ok());
  EXPECT_TRUE(drawing.addTableRecord(Table::kLayer, L"NEW").ok());
  EXPECT_TRUE(drawing.setHeaderVariable("CLAYER", std::wstring(L"0")).ok());
  EXPECT_TRUE(drawing.setHeaderVariable("DIMTXT", 3.0).ok());
}

TEST(Comments, ArePassedOverAndKeptWhereverTheyStand) {
  const std::string comment = "999\n 62\n999\nENDSEC\n";
  const std::string plain = drawingText("AC1021", kEntities, modernTables(), "ANSI_1252");
  const std::string source = commented(plain, comment);
  const auto drawing = read(plain), twin = read(source);
  ASSERT_TRUE(drawing && twin);
  EXPECT_EQ(twin->headerVariable("CLAYER"), Variable(std::wstring(L"WALL")));
  EXPECT_EQ(twin->integer(entity(*twin, "TEXT"), Property::kColorIndex), 3);
  EXPECT_EQ(twin->dimVariable(entity(*twin, "DIMENSION"), dimRow("DIMTXT")), Variable(3.5));
  const Geometry area = twin->geometry(entity(*twin, "HATCH"));
  ASSERT_EQ(std::get<HatchGeometry>(area.shape).paths.size(), 1U);
  EXPECT_EQ(
      std::get<PolylineGeometry>(std::get<HatchGeometry>(area.shape).paths[0].edges.at(0)).vertices.size(),
      3U);
  change(*drawing);
  change(*twin);
  int before = 0, after = 0;
  EXPECT_EQ(without(saved(*twin), comment, after), saved(*drawing));
  without(source, comment, before);
  EXPECT_EQ(after, before) << "comments were lost";
  expectUndone(*twin, source);
}

}  // namespace
}  // namespace cad::dxf
