#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/memory/tested_storage.h"

namespace cad {
namespace {

using dxf::drawingText;
using dxf::entity;
using dxf::groups;
using dxf::replaced;
using dxf::saved;

std::unique_ptr<Drawing> read(std::string bytes) { return tested(dxf::read(std::move(bytes))); }

constexpr std::string_view kLayers =
    "0 TABLE|2 LAYER|70 2|0 LAYER|2 0|70 0|62 7|6 CONTINUOUS|0 LAYER|2 WALL|70 0|62 3|6 CONTINUOUS|0 ENDTAB";

TEST(Layers, ThoseThatEntitiesNameExistUntilSomethingIsToBeWritten) {
  if (!testsDxf()) GTEST_SKIP() << "about the bytes of a DXF file";
  const std::string before = groups("0 SECTION|2 ENTITIES|0 LINE|8 Pipes|0 ENDSEC|0 EOF");
  const auto drawing = read(before);
  const RecordId pipes = drawing->find(Table::kLayer, L"PIPES");
  ASSERT_NE(pipes, kNoRecord);
  EXPECT_EQ(drawing->text(pipes, Property::kName), L"Pipes");
  EXPECT_NE(drawing->find(Table::kLayer, L"0"), kNoRecord);
  EXPECT_NE(drawing->find(Table::kLinetype, L"bylayer"), kNoRecord);
  EXPECT_NE(drawing->find(Table::kTextStyle, L"STANDARD"), kNoRecord);
  EXPECT_TRUE(drawing->setInteger(pipes, Property::kLayerColor, 7).ok()) << "its colour already";
  EXPECT_EQ(saved(*drawing), before);

  ASSERT_TRUE(drawing->setInteger(pipes, Property::kLayerColor, 5).ok());
  EXPECT_EQ(drawing->find(Table::kLayer, L"PIPES"), pipes);
  const auto again = read(saved(*drawing));
  ASSERT_TRUE(again);
  const RecordId written = again->find(Table::kLayer, L"pipes");
  EXPECT_EQ(again->integer(written, Property::kLayerColor), 5);
  EXPECT_EQ(again->record(written).flags & Record::kImplied, 0);
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
  EXPECT_EQ(drawing->find(Table::kLayer, L"PIPES"), pipes);
}

TEST(Layers, RenamingReachesEveryReferenceIgnoringCase) {
  if (!testsDxf()) GTEST_SKIP() << "about the bytes of a DXF file";
  const std::string before = groups(
      "0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|9 $CLAYER|8 wall|0 ENDSEC|0 SECTION|2 TABLES|"
      "0 TABLE|2 LAYER|70 2|0 LAYER|2 0|70 0|62 7|6 CONTINUOUS|0 LAYER|2 WALL|70 0|62 3|6 CONTINUOUS|0 "
      "ENDTAB|"
      "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 WALL|2 B|70 0|0 ARC|8 wall|0 ENDBLK|8 WALL|0 ENDSEC|"
      "0 SECTION|2 ENTITIES|0 POLYLINE|8 WALL|66 1|0 VERTEX|8 WALL|0 SEQEND|8 WALL|0 TEXT|8 0|1 WALL|"
      "1001 APP|1003 Wall|1000 WALL|0 ENDSEC|0 EOF");
  const auto drawing = read(before);
  ASSERT_TRUE(drawing);
  const RecordId wall = drawing->find(Table::kLayer, L"wall");
  ASSERT_TRUE(drawing->renameLayer(wall, L"M\u00DCR").ok());
  std::string expected = before;
  for (const std::string_view from :
       {"  8\nwall\n", "  2\nWALL\n", "  8\nWALL\n", "  8\nwall\n", "  8\nWALL\n", "  8\nWALL\n",
        "  8\nWALL\n", "  8\nWALL\n", "1003\nWall\n"}) {
    const std::size_t value = from.find('\n') + 1;
    expected = replaced(expected, from, std::string(from.substr(0, value)) + "M\xDCR\n");
  }
  EXPECT_EQ(saved(*drawing), expected);
  EXPECT_EQ(drawing->find(Table::kLayer, L"wall"), kNoRecord);
  EXPECT_EQ(drawing->find(Table::kLayer, L"m\u00FCr"), wall);
  ASSERT_TRUE(drawing->undo()) << "one change";
  EXPECT_FALSE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
}

TEST(Layers, RenamingReachesTheExtendedDataOfCopiedEntities) {
  const auto source = dxf::read(drawingText("AC1009", "0 LINE|8 0|1001 APP|1003 WALL", kLayers));
  const auto drawing = dxf::read(drawingText("AC1009", "0 ARC|8 0", kLayers));
  ASSERT_TRUE(drawing->defineBlock(L"B", *source).ok());
  ASSERT_TRUE(drawing->renameLayer(drawing->find(Table::kLayer, L"WALL"), L"NEW").ok());
  EXPECT_NE(saved(*drawing).find("1003\nNEW\n"), std::string::npos);
}

TEST(Layers, RenamingToATakenNameIsRefusedAndToAnotherCaseIsNot) {
  const auto drawing = read(drawingText("AC1009", "0 LINE|8 WALL|0 ARC|8 PIPES", kLayers));
  const RecordId wall = drawing->find(Table::kLayer, L"WALL");
  EXPECT_FALSE(drawing->renameLayer(wall, L"pipes").ok());
  EXPECT_FALSE(drawing->renameLayer(wall, L"").ok());
  EXPECT_FALSE(drawing->renameLayer(drawing->find(Table::kLayer, L"0"), L"x").ok());
  EXPECT_FALSE(drawing->isModified());
  ASSERT_TRUE(drawing->renameLayer(wall, L"Wall").ok());
  EXPECT_EQ(drawing->names().text(drawing->name(entity(*drawing, "LINE"), Property::kLayer)), L"Wall");
}

TEST(Layers, LockFollowsTheRecord) {
  const auto drawing = read(drawingText("AC1009", "0 LINE|8 wall", kLayers));
  const NameId layer = drawing->name(entity(*drawing, "LINE"), Property::kLayer);
  EXPECT_FALSE(drawing->isLayerLocked(layer));
  ASSERT_TRUE(drawing->setInteger(drawing->find(Table::kLayer, layer), Property::kStandardFlags, 4).ok());
  EXPECT_TRUE(drawing->isLayerLocked(layer));
  ASSERT_TRUE(drawing->undo());
  EXPECT_FALSE(drawing->isLayerLocked(layer));
}

TEST(Layers, RenamingReplacesAllNamesInTheExtendedDataAtOnce) {
  if (!testsDxf()) GTEST_SKIP() << "about the bytes of a DXF file";
  std::string names;
  for (int i = 0; i < 50; ++i) names += "|1003 wall|1003 PIPES";
  const std::string before = drawingText("AC1009", "0 LINE|8 0|1001 APP" + names, kLayers);
  const auto drawing = read(before);
  ASSERT_TRUE(drawing->renameLayer(drawing->find(Table::kLayer, L"WALL"), L"MASONRY").ok());
  std::string expected = replaced(before, "  2\nWALL\n", "  2\nMASONRY\n");
  expected = replaced(expected, "$CLAYER\n  8\nWALL\n", "$CLAYER\n  8\nMASONRY\n");
  expected = replaced(expected, "  8\nWALL\n", "  8\nMASONRY\n");  // the current layer
  for (int i = 0; i < 50; ++i) expected = replaced(expected, "1003\nwall\n", "1003\nMASONRY\n");
  EXPECT_EQ(saved(*drawing), expected);
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
}

// What names a layer is looked up once for many renamings; every change in between counts.
TEST(Layers, RenamingAgainReachesWhatHasJoinedTheLayer) {
  const auto drawing = read(drawingText(
      "AC1009", "0 LINE|8 wall|1001 APP|1003 PIPES|0 ARC|8 PIPES|1001 APP|1003 WALL|0 TEXT|8 0", kLayers));
  const std::string before = saved(*drawing);
  const RecordId wall = drawing->find(Table::kLayer, L"WALL");
  const auto layersAre = [&](const wchar_t* line, const wchar_t* arc, const wchar_t* text) {
    const std::pair<const char*, const wchar_t*> expected[] = {{"LINE", line}, {"ARC", arc}, {"TEXT", text}};
    for (const auto& [type, layer] : expected) {
      EXPECT_EQ(drawing->text(entity(*drawing, type), Property::kLayer), layer) << type;
    }
  };
  ASSERT_TRUE(drawing->renameLayer(wall, L"A").ok());
  ASSERT_TRUE(drawing->renameLayer(drawing->find(Table::kLayer, L"PIPES"), L"P").ok());
  layersAre(L"A", L"P", L"0");
  ASSERT_TRUE(drawing->setText(entity(*drawing, "TEXT"), Property::kLayer, L"A").ok());
  ASSERT_TRUE(drawing->renameLayer(wall, L"B").ok());
  layersAre(L"B", L"P", L"B");
  ASSERT_TRUE(drawing->undo());
  ASSERT_TRUE(drawing->renameLayer(wall, L"C").ok());
  layersAre(L"C", L"P", L"C");
  const std::string written = saved(*drawing);
  for (const char* named : {"1003\nP\n", "1003\nC\n"})
    EXPECT_TRUE(!testsDxf() || written.find(named) != std::string::npos) << named;
  while (drawing->undo()) continue;
  EXPECT_EQ(saved(*drawing), before);
}

TEST(Layers, AreFoundByTheNamesThatTheyHave) {
  const auto drawing = read(drawingText("AC1009", "0 LINE|8 WALL|0 ARC|8 PIPES", kLayers));
  const RecordId wall = drawing->find(Table::kLayer, L"WALL"), pipes = drawing->find(Table::kLayer, L"PIPES");
  const NameId oldName = drawing->names().intern(std::wstring_view(L"wall"));
  const NameId newName = drawing->names().intern(std::wstring_view(L"Masonry"));
  const auto expectNames = [&](RecordId underOld, RecordId underNew) {
    EXPECT_EQ(drawing->find(Table::kLayer, L"WALL"), underOld);
    EXPECT_EQ(drawing->find(Table::kLayer, oldName), underOld);
    EXPECT_EQ(drawing->find(Table::kLayer, L"MASONRY"), underNew);
    EXPECT_EQ(drawing->find(Table::kLayer, newName), underNew);
    EXPECT_EQ(drawing->find(Table::kLayer, L"pipes"), pipes);
  };
  expectNames(wall, kNoRecord);
  ASSERT_TRUE(drawing->renameLayer(wall, L"Masonry").ok());
  expectNames(kNoRecord, wall);
  const RecordId fresh = drawing->addTableRecord(Table::kLayer, L"Wall").value();
  expectNames(fresh, wall);
  ASSERT_TRUE(drawing->setErased(wall, true).ok());
  expectNames(fresh, kNoRecord);
  const std::size_t live = drawing->tableRecords(Table::kLayer).size();
  ASSERT_TRUE(drawing->setErased(wall, false).ok());
  expectNames(fresh, wall);
  EXPECT_EQ(drawing->tableRecords(Table::kLayer).size(), live + 1);
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(drawing->undo());
  expectNames(kNoRecord, wall);
  ASSERT_TRUE(drawing->undo());
  expectNames(wall, kNoRecord);
}

TEST(Layers, TheSecondOfEqualNamesIsFoundOnceTheFirstHasAnother) {
  const auto drawing = read(drawingText(
      "AC1009", "0 LINE|8 0", "0 TABLE|2 LAYER|70 2|0 LAYER|2 A|70 0|62 1|0 LAYER|2 a|70 0|62 2|0 ENDTAB"));
  const RecordId first = drawing->find(Table::kLayer, L"A");
  ASSERT_TRUE(drawing->renameLayer(first, L"B").ok());
  const RecordId second = drawing->find(Table::kLayer, L"A");
  EXPECT_NE(second, first);
  EXPECT_EQ(drawing->integer(second, Property::kLayerColor), 2);
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(drawing->find(Table::kLayer, L"A"), first);
  ASSERT_TRUE(drawing->setErased(first, true).ok());
  EXPECT_EQ(drawing->find(Table::kLayer, L"A"), second);
}

}  // namespace
}  // namespace cad
