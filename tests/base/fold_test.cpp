#include "base/fold.h"

#include <gtest/gtest.h>

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

}  // namespace
