// The properties that every entity has, written and refused.

#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "tests/embedded/objects/fixture.h"

namespace cad::test {
namespace {

class EntityTest : public ObjectTest {};

// What conversions write is shown by the cases.
TEST_F(EntityTest, WhatNoConversionWritesIsReadBack) {
  AcString content;
  Writing<AcDbText> text(id(0x50), AcDb::kForWrite);
  EXPECT_EQ(text->visibility(), AcDb::kVisible);
  EXPECT_EQ(text->setVisibility(AcDb::kInvisible), Acad::eOk);
  EXPECT_EQ(text->visibility(), AcDb::kInvisible);
  EXPECT_EQ(text->setTextString(L"\x5BF8\x6CD5 A"), Acad::eOk);
  text->textString(content);
  EXPECT_STREQ(content, L"\x5BF8\x6CD5 A");
  Writing<AcDbMText> paragraphs(id(0x51), AcDb::kForWrite);
  EXPECT_EQ(paragraphs->setContents(L"A\\PB"), Acad::eOk);
  paragraphs->contents(content);
  EXPECT_STREQ(content, L"A\\PB");
  Writing<AcDbDimension> dimension(id(0x53), AcDb::kForWrite);
  EXPECT_EQ(dimension->setDimensionText(L"<> typ"), Acad::eOk);
  dimension->dimensionText(content);
  EXPECT_STREQ(content, L"<> typ");
}

TEST_F(EntityTest, BadValuesAreRefusedAndChangeNothing) {
  Writing<AcDbEntity> text(id(0x50), AcDb::kForWrite);
  EXPECT_EQ(text->setLayer(L"No such layer"), Acad::eKeyNotFound);
  EXPECT_EQ(text->setLayer(recordId<AcDbLinetypeTable>(L"DASHED")), Acad::eWrongObjectType);
  EXPECT_EQ(text->setLinetype(L"HIDDEN"), Acad::eKeyNotFound);
  EXPECT_EQ(text->setColorIndex(257), Acad::eInvalidInput);
  EXPECT_EQ(text->setLineWeight(static_cast<AcDb::LineWeight>(33)), Acad::eInvalidInput);
  EXPECT_EQ(text->setLinetypeScale(0.0), Acad::eInvalidInput);
  EXPECT_EQ(text->setLinetypeScale(-1.0), Acad::eInvalidInput);
  AcCmTransparency wrong;
  wrong.setAlphaPercent(1.5);
  EXPECT_EQ(text->setTransparency(wrong), Acad::eInvalidInput);
  AcCmColor red;
  red.setRGB(255, 0, 0);
  EXPECT_EQ(text->setColor(red), Acad::eNotApplicable);
  EXPECT_FALSE(drawing_->isModified());
}

TEST_F(EntityTest, PropertiesThatTheVersionCannotHold) {
  AcCmTransparency glass(Adesk::UInt8{100});
  load(officeDrawing("AC1015"));
  {
    Writing<AcDbEntity> text(id(0x50), AcDb::kForWrite);
    EXPECT_EQ(text->setTransparency(glass), Acad::eNotApplicable);
    EXPECT_EQ(text->setTransparency(AcCmTransparency()), Acad::eOk);  // what it has anyway
    EXPECT_EQ(text->setLineWeight(AcDb::kLnWt025), Acad::eOk);
  }
  load(officeDrawing("AC1012"));
  Writing<AcDbEntity> text(id(0x50), AcDb::kForWrite);
  EXPECT_EQ(text->setLineWeight(AcDb::kLnWt025), Acad::eNotApplicable);
  EXPECT_EQ(text->setLinetypeScale(2), Acad::eOk);
}

TEST_F(EntityTest, VerticesFollowAndAttributesDoNot) {
  // In the spelling of its record, not of the caller.
  Writing<AcDbEntity>(id(0x59), AcDb::kForWrite)->setLayer(L"furniture");
  for (const Handle handle : {0x59, 0x5A, 0x5B, 0x5C}) EXPECT_EQ(layerOf(handle), L"Furniture");
  Writing<AcDbEntity>(id(0x59), AcDb::kForWrite)->setLayer(L"0", false);
  EXPECT_EQ(layerOf(0x59), L"0");
  EXPECT_EQ(layerOf(0x5A), L"Furniture");
  Writing<AcDbEntity>(id(0x56), AcDb::kForWrite)->setLayer(L"Furniture");
  EXPECT_EQ(layerOf(0x56), L"Furniture");
  EXPECT_EQ(layerOf(0x57), L"Walls");      // the attribute
  EXPECT_EQ(layerOf(0x58), L"Furniture");  // the sequence end
}

TEST_F(EntityTest, ALayerFoundOnceIsNotFoundAfterItsRenaming) {
  Writing<AcDbEntity> text(id(0x50), AcDb::kForWrite);
  ASSERT_EQ(text->setLayer(L"Furniture"), Acad::eOk);
  ASSERT_EQ(AcDbLayerTableRecordPointer(L"Furniture", database_.get(), AcDb::kForWrite)->setName(L"Desks"),
            Acad::eOk);
  EXPECT_EQ(text->setLayer(L"Furniture"), Acad::eKeyNotFound);
  AcString name;
  text->layer(name);
  EXPECT_STREQ(name, L"Desks");
}

TEST(Colors, KeepWhatTheyAreGiven) {
  AcCmColor color;
  color.setColorIndex(0);
  EXPECT_TRUE(color.isByBlock());
  color.setColorIndex(256);
  EXPECT_TRUE(color.isByLayer());
  EXPECT_EQ(color.setColorIndex(300), Acad::eInvalidInput);
  color.setRGB(1, 2, 3);
  EXPECT_EQ(color.colorIndex(), AcCmColor::kACInone);
  AcCmTransparency transparency;
  const struct {
    double fraction;
    int alpha;
  } kAlphas[] = {{1.0, 255}, {0.8, 204}, {0.5, 127}, {0.1, 25}, {0.0, 0}};
  for (const auto& row : kAlphas) {
    transparency.setAlphaPercent(row.fraction);
    EXPECT_EQ(transparency.alpha(), row.alpha) << row.fraction;
  }
}

}  // namespace
}  // namespace cad::test
