#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::dxf {
namespace {

struct BadFile {
  std::string bytes;
  const wchar_t* place;
  const wchar_t* reason;  // part of it
};

TEST(Loader, RefusalsNamePlaceAndReason) {
  const std::string good = drawingText("AC1015", "0 LINE|8 A|10 1.0");
  const std::size_t line = good.find("LINE");
  const BadFile cases[] = {
      {"hello\nworld\n", L"line 1", L"neither a DXF"},
      {groups("0 LINE|8 A|0 EOF"), L"line 1", L"neither a DXF"},
      {"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n xx\nA\n", L"line 7", L"group code"},
      {"  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n 9999\nA\n", L"line 7", L"group code"},
      {groups("0 SECTION|2 ENTITIES|0 LINE|8 A"), L"line 9", L"no EOF"},
      {groups("0 SECTION|2 TABLES|0 ENDSEC"), L"line 7", L"no EOF"},
      {groups("0 SECTION|2 ENTITIES|0 LINE|8 A", "\r") + " 10\r", L"line 10", L"middle of a group"},
      {good.substr(0, line + 8), L"line 29", L"middle of a group"},
      {std::string("AutoCAD Binary DXF\r\n\x1a\0\0SECTION\0\2ENTITIES\0\0LINE\0\x0a\1\2", 50), L"byte 47",
       L"no whole group"},
  };
  for (const BadFile& bad : cases) {
    const auto result = loadBytes(bad.bytes);
    ASSERT_FALSE(result.ok()) << bad.bytes;
    EXPECT_EQ(result.failure().place, bad.place) << bad.bytes;
    EXPECT_NE(result.failure().reason.find(bad.reason), std::wstring::npos)
        << base::toUtf8(result.failure().text());
  }
}

TEST(Loader, EveryTruncationIsRefusedButTheLossOfTheEnd) {
  const std::string good = drawingText("AC1015", "0 LINE|8 A|10 1.0");
  const std::size_t end = good.rfind("  0\nEOF");
  for (std::size_t length = 0; length + 1 < end; ++length) {
    EXPECT_FALSE(loadBytes(good.substr(0, length)).ok()) << length;
  }
  const std::string whole = good.substr(0, end), unended = good.substr(0, end - 1);
  const std::pair<std::string, const char*> cases[] = {{unended, ""},      {whole, ""},
                                                       {unended, "\x1A"},  {whole, "\n \r\n\x1A\x1A"},
                                                       {whole, " "},       {whole, "  0"},
                                                       {whole, "0\n"},     {whole, "0\n\n\n"},
                                                       {whole, "  0\nE"},  {whole, "  0\neo\r\n"},
                                                       {whole, "\n0\nEO"}, {whole, "  0\nEO\x1A"}};
  for (const auto& [text, tail] : cases) {
    const auto loaded = loadBytes(text + tail);
    ASSERT_TRUE(loaded.ok()) << tail;
    Drawing& drawing = *loaded.value();
    EXPECT_TRUE(drawing.facts().lacksEnd);
    EXPECT_EQ(saved(drawing), text + tail) << "the end is not made up";
    // What a change adds stands on lines of its own, before the end that is not there.
    ASSERT_TRUE(storageOf(drawing).endOfSection(drawing, Section::kObjects).ok());
    EXPECT_EQ(saved(drawing), whole + groups("0 SECTION|2 OBJECTS|0 ENDSEC") + tail);
  }
  for (const char* tail : {"E", "0E", "0\nO", "0\nE\nO", "0\nEO\n8\nA\n", "0\nEOX", "\n8\nA\n"}) {
    EXPECT_FALSE(loadBytes(whole + tail).ok()) << tail;
  }
  EXPECT_FALSE(read(good + "\n\x1A")->facts().lacksEnd);
  EXPECT_FALSE(read(good)->facts().lacksEnd);
}

TEST(Loader, VersionAndCodePageComeFromTheHeader) {
  struct {
    const char *version, *codePage;
    Version expected;
    base::CodePage page;
    bool known;
  } const cases[] = {{"AC1009", "dos850", Version::kR12, 850, true},
                     {"AC1015", "ansi_932", Version::kR2000, 932, true},
                     {"AC1018", "ISO8859-1", Version::kR2004, 28591, true},
                     {"AC1018", "ANSI_99999", Version::kR2004, 1252, false},
                     {"AC1021", "ANSI_932", Version::kR2007, base::kUtf8, true},
                     {"AC1032", "ANSI_1252", Version::kR2018, base::kUtf8, true}};
  for (const auto& row : cases) {
    const auto drawing = read(drawingText(row.version, "0 LINE|8 A", {}, row.codePage));
    ASSERT_TRUE(drawing);
    EXPECT_EQ(drawing->facts().version, row.expected) << row.version;
    EXPECT_EQ(drawing->facts().codePage, row.page) << row.codePage;
    EXPECT_EQ(drawing->facts().codePageKnown, row.known) << row.codePage;
    EXPECT_EQ(drawing->facts().codePageName, row.codePage);
  }
}

TEST(Loader, SectionAndGroup67TellTheSpace) {
  const auto drawing = read(groups(
      "0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 $MODEL_SPACE|0 ENDBLK|0 BLOCK|8 0|67 1|2 $PAPER_SPACE|0 ENDBLK|"
      "0 BLOCK|8 0|2 *Paper_Space7|0 ARC|8 0|0 ENDBLK|0 BLOCK|8 0|2 DOOR|0 CIRCLE|8 0|0 ENDBLK|0 ENDSEC|"
      "0 SECTION|2 ENTITIES|0 LINE|8 0|0 POINT|67 1|8 0|0 TEXT|67 0|8 0|0 ENDSEC|0 EOF"));
  ASSERT_TRUE(drawing);
  const auto types = [&](RecordId block) {
    std::string all;
    for (const RecordId id : drawing->entitiesOf(block)) all.append(drawing->typeName(id)).append(" ");
    return all;
  };
  EXPECT_EQ(types(drawing->find(Table::kBlock, L"*MODEL_SPACE")), "LINE TEXT ");
  EXPECT_EQ(types(drawing->find(Table::kBlock, L"*paper_space")), "POINT ");
  EXPECT_EQ(types(drawing->find(Table::kBlock, L"door")), "CIRCLE ");
  std::string visited;
  drawing->forEachSpaceEntity(std::vector<bool>(drawing->signatureCount(), true),
                              [&](RecordId id) { visited.append(drawing->typeName(id)).append(" "); });
  EXPECT_EQ(visited, "TEXT POINT LINE ARC ") << "newest first, entities of definitions left out";
  EXPECT_EQ(drawing->typeName(drawing->lastEntity()), "TEXT");
}

TEST(Loader, TheFormatsWordsMayBeInEitherCase) {
  const auto drawing =
      read(groups("0 Section|2 Tables|0 table|2 layer|70 1|0 layer|2 Wall|70 0|62 3|0 endtab|0 endsec|0 "
                  "section|2 entities|"
                  "0 insert|8 Wall|66 1|2 B|0 attrib|8 0|40 2.5|1 x|0 seqend|0 text|8 Wall|100 acdbentity|8 "
                  "Beam|40 2.5|7 Romans|0 "
                  "endsec|0 eof"));
  ASSERT_TRUE(drawing);
  const RecordId layer = drawing->find(Table::kLayer, L"WALL"), text = entity(*drawing, "TEXT");
  EXPECT_EQ(drawing->integer(layer, Property::kLayerColor), 3);
  EXPECT_EQ(drawing->typeName(layer), "LAYER");
  EXPECT_EQ(drawing->subRecordsOf(entity(*drawing, "INSERT")).size(), 2u);
  EXPECT_EQ(drawing->text(text, Property::kLayer), L"Beam");
  EXPECT_EQ(drawing->real(text, Property::kTextHeight), 2.5);
  ASSERT_TRUE(drawing->setInteger(text, Property::kColorIndex, 3).ok());
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(drawing->text(text, Property::kTextStyle), L"Romans");
}

TEST(Loader, SubRecordsBelongToTheirEntity) {
  const auto drawing = read(drawingText(
      "AC1009",
      "0 POLYLINE|8 P|66 1|0 VERTEX|8 V|0 VERTEX|8 V|0 SEQEND|8 P|0 INSERT|8 I|2 B|0 INSERT|8 I|66 1|2 B|"
      "0 ATTRIB|8 T|1 x|0 SEQEND|8 I|0 LINE|8 L"));
  ASSERT_TRUE(drawing);
  const auto& main = drawing->entitiesOf(drawing->modelSpace());
  ASSERT_EQ(main.size(), 4u);
  EXPECT_EQ(drawing->subRecordsOf(main[0]).size(), 3u);
  EXPECT_EQ(drawing->subRecordsOf(main[1]).size(), 0u);
  EXPECT_EQ(drawing->subRecordsOf(main[2]).size(), 2u);
  EXPECT_EQ(drawing->blockOf(drawing->subRecordsOf(main[2])[0]), drawing->modelSpace());
  EXPECT_NE(drawing->find(Table::kLayer, L"v"), kNoRecord) << "layers that only vertices name exist";
}

TEST(Loader, OfEqualHandlesTheFirstCounts) {
  const auto drawing =
      read(drawingText("AC1015", "0 LINE|5 A1|8 A|0 ARC|5 a1|8 A|0 TEXT|102 {X|5 9|102 }|5 B|8 A"));
  ASSERT_TRUE(drawing);
  EXPECT_EQ(drawing->findHandle(0xA1), entity(*drawing, "LINE"));
  EXPECT_EQ(drawing->findHandle(0xB), entity(*drawing, "TEXT"));
  EXPECT_EQ(drawing->findHandle(9), kNoRecord);
}

}  // namespace
}  // namespace cad::dxf
