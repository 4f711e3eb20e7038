// How texts are compared, read as numbers and taken apart as paths.

#include <gtest/gtest.h>

#include <climits>

#include "base/fold.h"
#include "base/numbers.h"
#include "base/paths.h"
#include "base/save_format.h"

namespace base {
namespace {

TEST(Fold, EveryAlphabetOfThePage) {
  EXPECT_EQ(base::upper(L"az AZ 09 ~"), L"AZ AZ 09 ~");
  EXPECT_EQ(base::upper(L"àþ÷ÿß"), L"ÀÞ÷Ÿß");
  EXPECT_EQ(base::upper(L"αωςάέίό"), L"ΑΩΣΆΈΊΌ");
  EXPECT_EQ(base::upper(L"аяѐџ"), L"АЯЀЏ");
  EXPECT_EQ(base::upper(L"ａｚⅰⅹ"), L"ＡＺⅠⅩ");
  EXPECT_EQ(base::upper(L"āłžı"), L"ĀŁŽı");
  EXPECT_EQ(base::upper(L"画層ｱｧー"), L"画層ｱｧー");  // kana have no case: small letters are other letters
}

TEST(Fold, ComparisonAndTrim) {
  EXPECT_TRUE(base::equalFolded(L"Wall-画", L"WALL-画"));
  EXPECT_FALSE(base::equalFolded(L"Wall", L"Walls"));
  EXPECT_TRUE(base::startsWithFolded(L"dimblk1", L"DIMBLK"));
  EXPECT_FALSE(base::startsWithFolded(L"DIM", L"DIMBLK"));
  EXPECT_EQ(base::trim(L" \t a b \r"), L"a b");
  EXPECT_EQ(base::trim(L" \t"), L"");
  EXPECT_EQ(base::trim(L"\u3000a"), L"\u3000a");
}

TEST(Numbers, RealsAreReadWithoutALocale) {
  EXPECT_DOUBLE_EQ(leadingReal(L" +2.50 mm"), 2.5);
  EXPECT_DOUBLE_EQ(leadingReal(L"-.5"), -0.5);
  EXPECT_DOUBLE_EQ(leadingReal(L"1E2x"), 100);
  for (const wchar_t* text : {L"", L"abc", L"inf", L"nan", L"-", L"+-5", L"-+5", L"２"}) {
    EXPECT_DOUBLE_EQ(leadingReal(text), 0) << testing::PrintToString(text);
    EXPECT_FALSE(isReal(text));
  }
  for (const wchar_t* text : {L" +2.50 ", L"-.5", L"1E2"}) EXPECT_TRUE(isReal(text));
  for (const wchar_t* text : {L"2.5mm", L"1.2.3", L"1-2", L"1e999"}) EXPECT_FALSE(isReal(text));
}

TEST(Numbers, LeadingIntegers) {
  EXPECT_EQ(leadingInteger(L" +12x"), 12);
  EXPECT_EQ(leadingInteger(L"-3.7"), -3);
  EXPECT_EQ(leadingInteger(L"- 3"), 0);
  EXPECT_EQ(leadingInteger(L"-３1"), -31);
  EXPECT_TRUE(isInteger(L"３") && isInteger(L" +003 "));
  EXPECT_FALSE(isInteger(L"-") || isInteger(L"３色") || isInteger(L"99999999999999999999999"));
  EXPECT_EQ(leadingInteger(L"99999999999999999999999"), INT_MAX);
}

TEST(Paths, JoinedAndTakenApart) {
  EXPECT_EQ(ensureTrailingSeparator(L"/a"), std::wstring(L"/a") + kSeparator);
  EXPECT_EQ(ensureTrailingSeparator(L"/a/"), L"/a/");
  EXPECT_EQ(joinPath(L"", L"b"), L"b");
  const PathParts parts = splitPath(L"/a.b/plan.v2.DXF");
  EXPECT_EQ(parts.folder, L"/a.b/");
  EXPECT_EQ(parts.name, L"plan.v2");
  EXPECT_EQ(parts.extension, L".DXF");
  EXPECT_EQ(splitPath(L"/a.b/plan").name, L"plan");
  EXPECT_EQ(splitPath(L"/a.b/plan").extension, L"");
}

TEST(SaveFormat, OnlyAnExtensionOfThreeCharactersIsCut) {
  EXPECT_EQ(savedName(L"a.dwg", SaveFormat::kDwg), L"a.DWG");
  EXPECT_EQ(savedName(L"plan.v2.dxf", SaveFormat::kDxf), L"plan.v2.DXF");
  EXPECT_EQ(savedName(L"plan", SaveFormat::kDwt), L"plan.DWT");
  EXPECT_EQ(savedName(L"plan.dx", SaveFormat::kDxf), L"plan.dx.DXF");
  EXPECT_EQ(savedName(L".dxf", SaveFormat::kDxf), L".DXF");
}

}  // namespace
}  // namespace base
