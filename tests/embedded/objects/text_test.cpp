// Texts, attributes and multiline texts.

#include "dbents.h"
#include "dbmtext.h"
#include "embedded/objects/mtext_plain_text.h"
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

TEST(MTextPlainText, CodesGoAndCharactersStay) {
  const struct {
    const wchar_t *contents, *plain;
  } kRows[] = {
      {L"plain", L"plain"},
      {L"a\\Pb\\Nc", L"a\nb\nc"},
      {L"a\\~b", L"a b"},
      {L"\\\\ \\{x\\}", L"\\ {x}"},
      {L"{\\fArial|b0|i0|c128|p34;A}{\\H2.5x;B}", L"AB"},
      {L"\\A1;\\C3;\\c255;\\Fromans;\\Q15;\\T1.2;\\W0.8;\\pi1,l2;x", L"x"},
      {L"\\Lunder\\l \\Oover\\o \\Kthrough\\k", L"under over through"},
      {L"\\S1/2; \\S+0.1^ -0.2; \\S3#4;", L"1/2 +0.1/-0.2 3/4"},
      {L"\\U+5BF8\\U+00e9", L"\x5BF8\x00E9"},
      {L"90%%d %%p1 %%c5 %%% %%065 50%%", L"90\x00B0 \x00B1\x31 \x2205\x35 % A 50%%"},
      {L"a^Ib^Jc^ d", L"a\tb\nc^d"},
      {L"\\Hopen", L"open"},
      {L"\\z \\U+12 end\\", L"\\z \\U+12 end\\"},
      {L"", L""},
  };
  for (const auto& row : kRows) EXPECT_EQ(plainText(row.contents), row.plain) << base::toUtf8(row.contents);
}

}  // namespace
}  // namespace cad::test
