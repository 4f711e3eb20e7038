// Texts, attributes and multiline texts.

#include "dbents.h"
#include "dbmtext.h"
#include "tests/embedded/objects/fixture.h"

namespace cad::test {
namespace {

constexpr double kPi = 3.14159265358979323846;

class TextTest : public ObjectTest {};

TEST_F(TextTest, DegreesStayWholeThroughRadians) {
  Writing<AcDbText>(id(0x50), AcDb::kForWrite)->setRotation(60 * kPi / 180);
  EXPECT_EQ(drawing_->real(recordOf(id(0x50)), Property::kRotation), 60.0);
}

TEST_F(TextTest, BadValuesAreRefused) {
  Writing<AcDbText> text(id(0x50), AcDb::kForWrite);
  EXPECT_EQ(text->setHeight(0), Acad::eInvalidInput);
  EXPECT_EQ(text->setWidthFactor(-1), Acad::eInvalidInput);
  EXPECT_EQ(text->setRotation(1e308 * 10), Acad::eInvalidInput);
  EXPECT_EQ(text->setTextStyle(layerId(L"0")), Acad::eWrongObjectType);
  EXPECT_EQ(text->setTextStyle(AcDbObjectId()), Acad::eNullObjectId);
  EXPECT_EQ(text->setTextString(nullptr), Acad::eInvalidInput);
  EXPECT_EQ(AcDbObjectPointer<AcDbText>(id(0x52))->setHeight(1), Acad::eNotOpenForWrite);
  EXPECT_FALSE(drawing_->isModified());
}

TEST_F(TextTest, AttributesKnowTheirTags) {
  AcString tag;
  AcDbObjectPointer<AcDbAttributeDefinition>(id(0x52))->tag(tag);
  EXPECT_STREQ(tag, L"NUMBER");
  AcDbObjectPointer<AcDbAttribute>(id(0x57))->tag(tag);
  EXPECT_STREQ(tag, L"NUMBER");
}

TEST_F(TextTest, MultilineTextsAreReadWithoutTheirCodes) {
  AcDbObjectPointer<AcDbMText> text(id(0x51));
  AcString content;
  text->text(content);
  EXPECT_STREQ(content, L"First\nsecond");
  EXPECT_DOUBLE_EQ(text->rotation(), kPi / 2);  // from its direction
}

}  // namespace
}  // namespace cad::test
