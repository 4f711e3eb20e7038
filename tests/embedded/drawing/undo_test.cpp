#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/memory/tested_storage.h"

namespace cad {
namespace {

using dxf::drawingText;
using dxf::entity;
using dxf::saved;

std::unique_ptr<Drawing> read(std::string bytes) { return tested(dxf::read(std::move(bytes))); }

constexpr std::string_view kEntities = "0 LINE|8 A|0 ARC|8 B|0 POLYLINE|8 C|66 1|0 VERTEX|8 C|0 SEQEND|8 C";

std::int64_t color(const Drawing& drawing, std::string_view type) {
  return drawing.integer(entity(drawing, type), Property::kColorIndex).value_or(256);
}

TEST(Undo, TakesBackAGroupOrASingleChange) {
  const auto drawing = read(drawingText("AC1009", kEntities));
  const std::string before = saved(*drawing);
  const RecordId line = entity(*drawing, "LINE"), arc = entity(*drawing, "ARC");
  ASSERT_TRUE(drawing->setInteger(line, Property::kColorIndex, 1).ok());
  drawing->beginUndoGroup();
  ASSERT_TRUE(drawing->setInteger(line, Property::kColorIndex, 2).ok());
  ASSERT_TRUE(drawing->setInteger(arc, Property::kColorIndex, 2).ok());
  drawing->beginUndoGroup();  // ends the first
  ASSERT_TRUE(drawing->setInteger(arc, Property::kColorIndex, 3).ok());
  drawing->endUndoGroup();
  drawing->beginUndoGroup();  // without changes: nothing to take back
  drawing->endUndoGroup();

  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(color(*drawing, "ARC"), 2);
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(color(*drawing, "LINE"), 1);
  EXPECT_EQ(color(*drawing, "ARC"), 256);
  ASSERT_TRUE(drawing->undo());
  EXPECT_FALSE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
}

TEST(Undo, AScopeThatFailsLeavesNothing) {
  const auto drawing = read(drawingText("AC1009", kEntities));
  const std::string before = saved(*drawing);
  {
    Drawing::ChangeScope scope(*drawing);
    ASSERT_TRUE(drawing->setInteger(entity(*drawing, "LINE"), Property::kColorIndex, 1).ok());
    ASSERT_TRUE(drawing->setErased(entity(*drawing, "ARC"), true).ok());
    scope.rollBack();
  }
  EXPECT_FALSE(drawing->undo());
  EXPECT_EQ(saved(*drawing), before);
}

TEST(Undo, ErasedEntitiesLeaveTheFileWithTheirParts) {
  const auto drawing = read(drawingText("AC1009", kEntities));
  const std::string before = saved(*drawing);
  const auto count = [&] {
    int seen = 0;
    drawing->forEachSpaceEntity(std::vector<bool>(drawing->signatureCount(), true),
                                [&](RecordId) { ++seen; });
    return seen;
  };
  EXPECT_EQ(count(), 3);
  ASSERT_TRUE(drawing->setErased(entity(*drawing, "POLYLINE"), true).ok());
  const auto without = read(drawingText("AC1009", "0 LINE|8 A|0 ARC|8 B"));
  EXPECT_EQ(saved(*drawing).find("VERTEX"), std::string::npos);
  if (testsDxf()) {
    EXPECT_EQ(saved(*drawing), saved(*without));
  }
  EXPECT_EQ(count(), 2);
  EXPECT_EQ(drawing->typeName(drawing->lastEntity()), "ARC");
  ASSERT_TRUE(drawing->undo());
  EXPECT_EQ(count(), 3);
  EXPECT_EQ(saved(*drawing), before);
}

TEST(Undo, AddedRecordsGoAgainAndTheirPlaceWithThem) {
  const auto drawing = read(dxf::groups("0 SECTION|2 ENTITIES|0 LINE|8 A|0 ENDSEC|0 EOF"));
  const std::string before = saved(*drawing);
  for (int i = 0; i < 2; ++i) {
    const auto layer = drawing->addTableRecord(Table::kLayer, L"NEW");
    ASSERT_TRUE(layer.ok());
    EXPECT_EQ(drawing->find(Table::kLayer, L"new"), layer.value());
    const std::string with = saved(*drawing);
    EXPECT_NE(with, before);
    if (testsDxf()) {
      EXPECT_LT(with.find("TABLES"), with.find("ENTITIES"));
      ASSERT_TRUE(read(with));
      EXPECT_NE(read(with)->find(Table::kLayer, L"NEW"), kNoRecord);
    }
    while (drawing->undo()) {
    }
    EXPECT_EQ(saved(*drawing), before);
    EXPECT_EQ(drawing->find(Table::kLayer, L"new"), kNoRecord);
  }
}

// An application that the typeface needs, a layer that so far only an entity named.
TEST(Undo, TakesBackWhatASetterMadeElsewhereWithIt) {
  const auto drawing = read(drawingText("AC1015", "0 LINE|100 AcDbEntity|8 A|0 ARC|100 AcDbEntity|8 B",
                                        "0 TABLE|2 STYLE|70 1|0 STYLE|2 ROMANS|70 0|3 txt|0 ENDTAB"));
  const std::string before = saved(*drawing);
  const RecordId style = drawing->find(Table::kTextStyle, L"ROMANS");
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(drawing->setText(style, Property::kTypeface, L"Arial").ok());
    ASSERT_TRUE(drawing->setText(entity(*drawing, "LINE"), Property::kLayer, L"B").ok());
    ASSERT_TRUE(drawing->undo());
    ASSERT_TRUE(drawing->undo());
    EXPECT_EQ(saved(*drawing), before);
    EXPECT_FALSE(drawing->undo());
  }
}

}  // namespace
}  // namespace cad
