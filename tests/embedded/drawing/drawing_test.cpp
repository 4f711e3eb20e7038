#include <gtest/gtest.h>

#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/memory/tested_storage.h"

namespace cad {
namespace {

using dxf::drawingText;
using dxf::entity;
using dxf::saved;

std::unique_ptr<Drawing> read(std::string bytes) { return tested(dxf::read(std::move(bytes))); }

TEST(Drawing, SignaturesFollowTheProperties) {
  const auto drawing =
      read(drawingText("AC1015",
                       "0 LINE|100 AcDbEntity|8 A|0 LINE|100 AcDbEntity|8 A|0 TEXT|100 AcDbEntity|"
                       "8 A|62 3|100 AcDbText|7 ROMANS|0 LINE|100 AcDbEntity|8 B",
                       "0 TABLE|2 STYLE|70 1|0 STYLE|2 ROMANS|70 0|0 ENDTAB"));
  const auto& all = drawing->entitiesOf(drawing->modelSpace());
  EXPECT_EQ(drawing->record(all[0]).signature, drawing->record(all[1]).signature);
  EXPECT_NE(drawing->record(all[0]).signature, drawing->record(all[3]).signature);
  const Signature text = drawing->signature(drawing->record(all[2]).signature);
  EXPECT_EQ(drawing->names().stored(text.style), "ROMANS");
  EXPECT_EQ(drawing->names().stored(text.linetype), "ByLayer");
  EXPECT_EQ(text.color, 3);

  ASSERT_TRUE(drawing->setText(all[3], Property::kLayer, L"A").ok());
  EXPECT_EQ(drawing->record(all[0]).signature, drawing->record(all[3]).signature);
  std::vector<bool> wanted(drawing->signatureCount());
  wanted[drawing->record(all[0]).signature] = true;
  std::vector<RecordId> seen;
  drawing->forEachSpaceEntity(wanted, [&](RecordId id) { seen.push_back(id); });
  EXPECT_EQ(seen, (std::vector<RecordId>{all[3], all[1], all[0]}));
}

TEST(Drawing, NamesAreComparedIgnoringCase) {
  const auto drawing = read(drawingText("AC1015", "0 LINE|100 AcDbEntity|8 Wall|6 BYLAYER"));
  const RecordId line = entity(*drawing, "LINE");
  ASSERT_TRUE(drawing->setText(line, Property::kLayer, L"WALL").ok());
  ASSERT_TRUE(drawing->setText(line, Property::kLinetype, L"ByLayer").ok());
  EXPECT_FALSE(drawing->isModified());
}

TEST(Drawing, OnlyWhatTheFileWillHoldIsReferredTo) {
  const auto drawing = read(drawingText("AC1015", "0 LINE|100 AcDbEntity|8 A",
                                        "0 TABLE|2 STYLE|70 1|0 STYLE|2 |70 1|3 ltypeshp.shx|0 ENDTAB|"
                                        "0 ENDSEC|0 SECTION|2 BLOCKS|0 BLOCK|8 0|2 B|70 0|0 ENDBLK|8 0"));
  const RecordId block = drawing->find(Table::kBlock, L"B"), line = entity(*drawing, "LINE");
  ASSERT_TRUE(drawing->setErased(block, true).ok());
  const auto made = drawing->addInsert(drawing->modelSpace(), {block, {}});
  EXPECT_FALSE(made.ok()) << "an erased block";
  EXPECT_FALSE(
      drawing->setReference(line, Property::kTextStyle, drawing->shapeFile(L"ltypeshp.shx").value()).ok());
  EXPECT_FALSE(drawing->setReference(line, Property::kLayer, line).ok());
}

TEST(Drawing, SavingMakesThePathAndAFailureLeavesIt) {
  const auto drawing = read(drawingText("AC1015", "0 LINE|100 AcDbEntity|8 A"));
  ASSERT_TRUE(drawing->setInteger(entity(*drawing, "LINE"), Property::kColorIndex, 2).ok());
  EXPECT_TRUE(drawing->isModified());
  EXPECT_FALSE(drawing->save("/no such folder/x.dxf").ok());
  EXPECT_TRUE(drawing->isModified());
  EXPECT_TRUE(drawing->path().empty());
  saved(*drawing);
  EXPECT_FALSE(drawing->isModified());
  EXPECT_FALSE(drawing->path().empty());
}

TEST(Drawing, SavingOverItsOwnFileKeepsTheDrawingWhole) {
  if (!testsDxf()) GTEST_SKIP() << "about the bytes of a DXF file";
  const auto path = test_support::tempPath("kiv_own");
  const std::string before = drawingText("AC1015", "0 LINE|100 AcDbEntity|8 A|0 ARC|100 AcDbEntity|8 A");
  ASSERT_TRUE(base::writeFileAtomically(path, before).ok());
  {
    auto drawing = formats::open(path);
    ASSERT_TRUE(drawing.ok());
    ASSERT_TRUE(drawing.value()->setErased(entity(*drawing.value(), "LINE"), true).ok());
    ASSERT_TRUE(drawing.value()->save(path).ok());
    ASSERT_TRUE(drawing.value()->undo());
    ASSERT_TRUE(drawing.value()->save(path).ok());
  }
  EXPECT_EQ(base::readFile(path).value(), before);
  std::filesystem::remove(path);
}

}  // namespace
}  // namespace cad
