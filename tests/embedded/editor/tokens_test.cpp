#include "embedded/editor/tokens.h"

#include <gtest/gtest.h>

namespace {

TEST(TypedText, BlanksAndLineEndsAreEnter) {
  cad::TextReader reader(L"SAVEAS DXF V  16\r\n\n\"C:\\my plans\\a b.dxf\"\nY\n");
  const wchar_t* expected[] = {L"SAVEAS", L"DXF", L"V", L"", L"16", L"", L"C:\\my plans\\a b.dxf", L"Y"};
  for (const wchar_t* each : expected) EXPECT_EQ(reader.next()->text, each);
  EXPECT_FALSE(reader.next());
}

TEST(TypedText, APathTakesTheRestOfItsLine) {
  cad::TextReader reader(L"; a remark\nOPEN C:\\my plans\\a.dxf \r\n\"b c.dxf\"\nNEXT");
  EXPECT_EQ(reader.nextName()->text, L"OPEN");
  EXPECT_EQ(reader.nextPath()->text, L"C:\\my plans\\a.dxf");
  EXPECT_EQ(reader.nextPath()->text, L"b c.dxf");
  EXPECT_EQ(reader.nextName()->text, L"NEXT");
}

TEST(TypedText, NumbersAndPoints) {
  EXPECT_EQ(cad::Token{L"-2.5"}.number(), -2.5);
  EXPECT_FALSE(cad::Token{L"2.5m"}.number());
  EXPECT_FALSE(cad::Token{L""}.number());
  for (const wchar_t* each : {L"inf", L"-INFINITY", L"nan", L"1e999"})
    EXPECT_FALSE(cad::Token{each}.number()) << testing::PrintToString(std::wstring(each));
  EXPECT_FALSE(cad::Token{L"1,nan"}.point());
  EXPECT_EQ(cad::Token{L"1,2"}.point()->y, 2);
  EXPECT_EQ(cad::Token{L"1,2,3"}.point()->z, 3);
  EXPECT_FALSE(cad::Token{L"1"}.point());
  EXPECT_FALSE(cad::Token{L"1,2,3,4"}.point());
  EXPECT_FALSE(cad::Token{L"1,,3"}.point());
}

}  // namespace
