#include <gtest/gtest.h>

#include <limits>
#include <variant>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::dxf {
namespace {

using Value = std::variant<std::int64_t, double, std::wstring>;

base::Status set(Drawing& drawing, RecordId id, Property property, const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value))
    return drawing.setInteger(id, property, *number);
  if (const auto* real = std::get_if<double>(&value)) return drawing.setReal(id, property, *real);
  return drawing.setText(id, property, std::get<std::wstring>(value));
}

std::optional<Value> get(const Drawing& drawing, RecordId id, Property property) {
  if (const auto number = drawing.integer(id, property)) return *number;
  if (const auto real = drawing.real(id, property)) return *real;
  if (const auto text = drawing.text(id, property)) return *text;
  return std::nullopt;
}

constexpr std::string_view kTables =
    "0 TABLE|2 LTYPE|70 1|0 LTYPE|100 AcDbSymbolTableRecord|100 AcDbLinetypeTableRecord|2 DASHED|70 0|3 - "
    "-|0 ENDTAB|"
    "0 TABLE|2 STYLE|70 1|0 STYLE|100 AcDbSymbolTableRecord|100 AcDbTextStyleTableRecord|2 ROMANS|70 0|40 "
    "0.0|"
    "41 1.0|50 0.0|71 0|42 2.5|3 romans|4 bigfont|0 ENDTAB|"
    "0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|105 3A|100 AcDbSymbolTableRecord|100 AcDbDimStyleTableRecord|2 "
    "ISO-25|70 0|"
    "0 ENDTAB|0 TABLE|2 LAYER|70 1|0 LAYER|5 2B|100 AcDbSymbolTableRecord|100 AcDbLayerTableRecord|2 WALL|70 "
    "0|"
    "62 7|6 Continuous|390 F|0 ENDTAB|0 TABLE|2 APPID|70 1|0 APPID|100 AcDbSymbolTableRecord|"
    "100 AcDbRegAppTableRecord|2 ACAD|70 0|0 APPID|100 AcDbSymbolTableRecord|100 AcDbRegAppTableRecord|"
    "2 AcCmTransparency|70 0|0 ENDTAB";

struct Change {
  const char* entity;  // groups before; the record's type is the first
  Property property;
  Value value;
  const char* expected;  // groups after
};

class EntityProperty : public testing::TestWithParam<Change> {};

TEST_P(EntityProperty, ChangesItsGroupsAndNothingElse) {
  const Change& change = GetParam();
  const std::string before = drawingText("AC1024", change.entity, kTables);
  const auto drawing = read(before);
  ASSERT_TRUE(drawing);
  const RecordId id = drawing->entitiesOf(drawing->modelSpace()).at(0);
  const base::Status status = set(*drawing, id, change.property, change.value);
  ASSERT_TRUE(status.ok()) << base::toUtf8(status.failure().text());
  EXPECT_EQ(saved(*drawing), replaced(before, groups(change.entity), groups(change.expected)));
  EXPECT_EQ(get(*drawing, id, change.property), change.value);
  // Once more is no change.
  ASSERT_TRUE(set(*drawing, id, change.property, change.value).ok());
  EXPECT_FALSE(drawing->isModified());
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
}

#define LINE_HEAD "0 LINE|5 A|100 AcDbEntity|8 WALL"
#define LINE_TAIL "|100 AcDbLine|10 0.0|20 0.0"
#define TEXT_HEAD "0 TEXT|5 A|100 AcDbEntity|8 WALL|100 AcDbText|10 0.0|20 0.0|40 2.5|1 AB"
#define TEXT_TAIL "|100 AcDbText|73 1"
#define MTEXT_HEAD "0 MTEXT|5 A|100 AcDbEntity|8 WALL|100 AcDbMText|10 0.0|20 0.0|40 2.5|41 9.0"
#define DIM_HEAD "0 DIMENSION|5 A|100 AcDbEntity|8 WALL|100 AcDbDimension"
#define DIM_TAIL "|100 AcDbAlignedDimension|13 1.0|53 7.0|1 no"

const Change kChanges[] = {
    {LINE_HEAD LINE_TAIL, Property::kLinetype, L"DASHED", LINE_HEAD "|6 DASHED" LINE_TAIL},
    {LINE_HEAD "|6 DASHED" LINE_TAIL, Property::kLinetype, L"ByLayer", LINE_HEAD "|6 ByLayer" LINE_TAIL},
    {LINE_HEAD "|62      3|420 255|430 RAL" LINE_TAIL, Property::kColorIndex, std::int64_t{11},
     LINE_HEAD "|62     11" LINE_TAIL},
    {LINE_HEAD "|62 3" LINE_TAIL, Property::kColorIndex, std::int64_t{0}, LINE_HEAD "|62 0" LINE_TAIL},
    {LINE_HEAD LINE_TAIL, Property::kLineWeight, std::int64_t{25}, LINE_HEAD "|370 25" LINE_TAIL},
    {LINE_HEAD LINE_TAIL, Property::kTransparency, std::int64_t{0x0200007F},
     LINE_HEAD "|440 33554559" LINE_TAIL},
    {LINE_HEAD LINE_TAIL, Property::kLinetypeScale, 0.5, LINE_HEAD "|48 0.5" LINE_TAIL},
    {LINE_HEAD LINE_TAIL, Property::kInvisible, std::int64_t{1}, LINE_HEAD "|60 1" LINE_TAIL},
    {LINE_HEAD LINE_TAIL "|370 13|48 2.0", Property::kLineWeight, std::int64_t{25},
     LINE_HEAD LINE_TAIL "|370 25|48 2.0"},
    {LINE_HEAD LINE_TAIL "|370 13|48 2.0", Property::kLinetypeScale, 0.5,
     LINE_HEAD LINE_TAIL "|370 13|48 0.5"},
    {"0 SWEPTSURFACE|100 AcDbEntity|100 AcDbSweptSurface|8 WALL|48 1.0", Property::kLinetypeScale, 0.5,
     "0 SWEPTSURFACE|100 AcDbEntity|48 0.5|100 AcDbSweptSurface|8 WALL|48 1.0"},
    {LINE_HEAD LINE_TAIL "|60 1", Property::kInvisible, std::int64_t{0}, LINE_HEAD LINE_TAIL "|60 0"},
    {"0 MTEXT|100 AcDbMText|8 WALL|440 33554559|75 1|48 9.0", Property::kLinetypeScale, 0.5,
     "0 MTEXT|48 0.5|100 AcDbMText|8 WALL|440 33554559|75 1|48 9.0"},
    {"0 MTEXT|100 AcDbMText|8 WALL|440 33554559|75 1|48 9.0", Property::kTransparency,
     std::int64_t{0x01000000}, "0 MTEXT|100 AcDbMText|8 WALL|440 16777216|75 1|48 9.0"},
    {TEXT_HEAD TEXT_TAIL, Property::kTextStyle, L"ROMANS", TEXT_HEAD "|7 ROMANS" TEXT_TAIL},
    {TEXT_HEAD TEXT_TAIL, Property::kRotation, 45.5, TEXT_HEAD "|50 45.5" TEXT_TAIL},
    {TEXT_HEAD "|41 1.0" TEXT_TAIL, Property::kWidthFactor, 0.8, TEXT_HEAD "|41 0.8" TEXT_TAIL},
    {TEXT_HEAD TEXT_TAIL, Property::kTextString, L"\u65E5\u672C \u00E9",
     "0 TEXT|5 A|100 AcDbEntity|8 WALL|100 AcDbText|10 0.0|20 0.0|40 2.5|"
     "1 \xE6\x97\xA5\xE6\x9C\xAC \xC3\xA9" TEXT_TAIL},
    {MTEXT_HEAD "|1 a|75 1|50 12.0", Property::kRotation, 30.0, MTEXT_HEAD "|1 a|50 30.0|75 1|50 12.0"},
    {MTEXT_HEAD "|1 a|11 1.0|21 0.0|31 0.0", Property::kRotation, 180.0,
     MTEXT_HEAD "|1 a|11 -1.0|21 0.0|31 0.0"},
    {MTEXT_HEAD "|1 a|101 Embedded Object|70 1|10 1.0|20 0.0|30 0.0|11 5.0|21 6.0", Property::kRotation,
     180.0, MTEXT_HEAD "|1 a|50 180.0|101 Embedded Object|70 1|10 -1.0|20 0.0|30 0.0|11 5.0|21 6.0"},
    {MTEXT_HEAD "|3 one |3 two |1 three|7 ROMANS", Property::kTextString, L"four",
     MTEXT_HEAD "|1 four|7 ROMANS"},
    {MTEXT_HEAD "|1 a|101 Embedded Object|40 1.0", Property::kTextHeight, 5.0,
     "0 MTEXT|5 A|100 AcDbEntity|8 WALL|100 AcDbMText|10 0.0|20 0.0|40 5.0|41 9.0|1 a|101 Embedded Object|40 "
     "1.0"},
    {DIM_HEAD "|2 *D1|3 Standard" DIM_TAIL, Property::kDimStyle, L"ISO-25",
     DIM_HEAD "|2 *D1|3 ISO-25" DIM_TAIL},
    {DIM_HEAD "|2 *D1" DIM_TAIL, Property::kDimText, L"<>mm", DIM_HEAD "|2 *D1|1 <>mm" DIM_TAIL},
    {DIM_HEAD "|2 *D1" DIM_TAIL, Property::kTextRotation, 15.0, DIM_HEAD "|2 *D1|53 15.0" DIM_TAIL},
    {"0 LEADER|8 WALL|100 AcDbLeader|3 Standard|71 1", Property::kDimStyle, L"ISO-25",
     "0 LEADER|8 WALL|100 AcDbLeader|3 ISO-25|71 1"},
};
INSTANTIATE_TEST_SUITE_P(All, EntityProperty, testing::ValuesIn(kChanges));

// Other readers take a group of 0 as fully transparent.
TEST(Transparency, ByLayerHasNoGroup) {
  for (const char* tail :
       {LINE_TAIL, "|440 33554559" LINE_TAIL, "|440 0" LINE_TAIL, LINE_TAIL "|440 33554559",
        "|440 33554559|440 16777216" LINE_TAIL "|440 33554559"}) {
    const std::string before = drawingText("AC1024", std::string(LINE_HEAD) + tail, kTables);
    const auto drawing = read(before);
    ASSERT_TRUE(drawing->setInteger(entity(*drawing, "LINE"), Property::kTransparency, 0).ok()) << tail;
    const bool kept = std::string_view(tail).find("440 0") != std::string_view::npos;
    EXPECT_EQ(saved(*drawing), kept ? before : drawingText("AC1024", LINE_HEAD LINE_TAIL, kTables)) << tail;
    while (drawing->undo()) {
    }
    EXPECT_EQ(saved(*drawing), before) << tail;
  }
}

// A table's record may have got among them.
TEST(Transparency, IsKeptByEntitiesOfAnyType) {
  const auto drawing = read(drawingText("AC1024", "0 LAYER|8 WALL", kTables));
  const RecordId id = entity(*drawing, "LAYER");
  ASSERT_TRUE(drawing->setInteger(id, Property::kTransparency, 0x0200007F).ok());
  EXPECT_EQ(drawing->integer(id, Property::kTransparency), 0x0200007F);
}

struct TableChange {
  Table table;
  const wchar_t* name;
  Property property;
  Value value;
  const char *from, *to;  // groups
};

TEST(References, ANameWithoutARecordMayStayAndNoneMayBecomeOne) {
  const auto drawing = read(drawingText("AC1024", "0 LINE|100 AcDbEntity|8 0|6 LOST|100 AcDbLine", kTables));
  const RecordId line = entity(*drawing, "LINE");
  EXPECT_TRUE(drawing->setText(line, Property::kLinetype, L"Lost").ok());
  EXPECT_FALSE(drawing->setText(line, Property::kLinetype, L"NONE").ok());
  EXPECT_FALSE(drawing->isModified());
}

TEST(TableProperty, ChangesItsGroupsAndNothingElse) {
  const TableChange changes[] = {
      {Table::kLayer, L"WALL", Property::kLayerColor, std::int64_t{-7}, "62 7|6 C", "62 -7|6 C"},
      {Table::kLayer, L"WALL", Property::kStandardFlags, std::int64_t{5}, "2 WALL|70 0", "2 WALL|70 5"},
      {Table::kLayer, L"WALL", Property::kLayerLinetype, L"DASHED", "6 Continuous", "6 DASHED"},
      {Table::kLayer, L"WALL", Property::kLineWeight, std::int64_t{50}, "390 F", "390 F|370 50"},
      {Table::kLayer, L"WALL", Property::kLayerPlottable, std::int64_t{0}, "390 F", "390 F|290 0"},
      {Table::kLayer, L"WALL", Property::kTransparency, std::int64_t{0x02000080}, "390 F",
       "390 F|1001 AcCmTransparency|1071 33554560"},
      {Table::kTextStyle, L"ROMANS", Property::kFontFile, L"txt", "3 romans", "3 txt"},
      {Table::kTextStyle, L"ROMANS", Property::kBigFontFile, L"", "4 bigfont", "4 "},
      {Table::kTextStyle, L"ROMANS", Property::kTypeface, L"MS Gothic", "4 bigfont",
       "4 bigfont|1001 ACAD|1000 MS Gothic|1071 0"},
      {Table::kTextStyle, L"ROMANS", Property::kFixedHeight, 2.5, "70 0|40 0.0", "70 0|40 2.5"},
      {Table::kLinetype, L"dashed", Property::kDescription, L"new", "3 - -", "3 new"},
  };
  const std::string before = drawingText("AC1024", "0 LINE|8 WALL", kTables);
  for (const TableChange& change : changes) {
    const auto drawing = read(before);
    const RecordId id = drawing->find(change.table, change.name);
    ASSERT_NE(id, kNoRecord);
    ASSERT_TRUE(set(*drawing, id, change.property, change.value).ok()) << change.to;
    std::string from = groups(change.from), to = groups(change.to);
    if (std::string_view(change.from).ends_with("6 C")) from.pop_back(), to.pop_back();
    EXPECT_EQ(saved(*drawing), replaced(before, from, to)) << change.to;
    EXPECT_EQ(get(*drawing, id, change.property), change.value);
    ASSERT_TRUE(drawing->undo());
    EXPECT_EQ(saved(*drawing), before);
  }
}

TEST(TableProperty, ATypefaceGivesWayToAFontFile) {
  const std::string before = drawingText("AC1024", "0 LINE|8 WALL", kTables);
  const auto drawing = read(before);
  const RecordId style = drawing->find(Table::kTextStyle, L"ROMANS");
  ASSERT_TRUE(drawing->setText(style, Property::kTypeface, L"Arial").ok());
  ASSERT_TRUE(drawing->setText(style, Property::kTypeface, L"").ok());
  EXPECT_EQ(saved(*drawing), before);
}

TEST(EntityLimits, ValuesAndPropertiesThatDoNotFitAreRefused) {
  const std::string before = drawingText("AC1009", "0 LINE|8 A|0 TEXT|8 A|40 1.0|1 x");
  const auto drawing = read(before);
  const RecordId line = entity(*drawing, "LINE"), text = entity(*drawing, "TEXT");
  EXPECT_FALSE(drawing->setInteger(line, Property::kColorIndex, 257).ok());
  EXPECT_FALSE(drawing->setReal(text, Property::kTextHeight, 0).ok());
  EXPECT_FALSE(drawing->setReal(text, Property::kRotation, std::numeric_limits<double>::quiet_NaN()).ok());
  EXPECT_FALSE(drawing->setReal(line, Property::kTextHeight, 1).ok()) << "a line has no height";
  EXPECT_FALSE(drawing->setText(line, Property::kLayer, L"unknown").ok());
  EXPECT_FALSE(drawing->setText(line, Property::kLinetype, L"unknown").ok());
  EXPECT_FALSE(drawing->setInteger(line, Property::kLineWeight, 25).ok()) << "not before 2000";
  EXPECT_FALSE(drawing->setReal(line, Property::kLinetypeScale, 2).ok()) << "not before R13";
  EXPECT_FALSE(drawing->setInteger(line, Property::kTransparency, 0x02000080).ok()) << "not before 2010";
  EXPECT_FALSE(drawing->canHold(line, Property::kLineWeight));
  EXPECT_TRUE(drawing->setInteger(line, Property::kLineWeight, -1).ok()) << "what it is anyway";
  EXPECT_FALSE(drawing->isModified());
  EXPECT_EQ(saved(*drawing), before);
}

TEST(LongText, IsCutBetweenCharactersAndJoinedAgain) {
  std::wstring content;
  for (int i = 0; i < 200; ++i) content += L"x\u8868\u00E9";  // 1, 2 and, as an escape, 7 bytes in page 932
  const auto drawing = read(drawingText("AC1018", "0 MTEXT|8 A|100 AcDbEntity|100 AcDbMText|40 1.0|1 short"));
  const RecordId id = entity(*drawing, "MTEXT");
  ASSERT_TRUE(drawing->setText(id, Property::kTextString, content).ok());
  EXPECT_EQ(drawing->text(id, Property::kTextString), content);
  const std::string bytes = saved(*drawing);
  for (std::size_t at = bytes.find("\n  3\n"); at != std::string::npos; at = bytes.find("\n  3\n", at + 1)) {
    if (bytes.compare(at + 5, 5, "ANSI_") == 0) continue;
    const std::string piece = bytes.substr(at + 5, bytes.find('\n', at + 5) - at - 5);
    EXPECT_LE(piece.size(), 250u);
    EXPECT_TRUE(base::decode(piece, 932).clean) << "cut within a character";
    EXPECT_EQ(piece.find("\\", piece.size() - 6), piece.npos) << "cut within an escape";
  }
  EXPECT_EQ(read(bytes)->text(entity(*read(bytes), "MTEXT"), Property::kTextString), content);
}

}  // namespace
}  // namespace cad::dxf
