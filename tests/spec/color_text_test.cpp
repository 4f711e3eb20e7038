#include "spec/color_text.h"

#include <gtest/gtest.h>

#include <climits>

namespace kiv {
namespace {

TEST(ColorText, TheLargerHalfCounts) {
  EXPECT_EQ(colorNumber(L"7:白"), 7);
  EXPECT_EQ(colorNumber(L"256:BYLAYER"), 256);
  EXPECT_EQ(colorNumber(L" 12 34 "), 34);
  EXPECT_EQ(colorNumber(L"34 12"), 34);
  EXPECT_EQ(colorNumber(L"1 2:300"), 300);  // the colon stands after the blank: cut there
  EXPECT_EQ(colorNumber(L"1:2 300"), 300);  // the blank stands after the colon: cut at the blank
  EXPECT_EQ(colorNumber(L"red"), 0);
}

TEST(ColorText, FormsOfFilesAndPeople) {
  for (const int number : {0, 1, 7, 8, 255, 256, 257}) {
    EXPECT_EQ(colorNumber(colorText(number)), number);
    EXPECT_EQ(colorNumberOfFileText(colorFileText(number)), number);
  }
  EXPECT_EQ(colorText(0), L"0:BYBLOCK");
  EXPECT_EQ(colorText(4), L"4:水色");
  EXPECT_EQ(colorText(8), L"8");
  EXPECT_EQ(colorFileText(256), L"BYLAYER");
  EXPECT_EQ(colorNumberOfFileText(L"x bylayer"), 256);
}

TEST(ColorText, LeadingIntegers) {
  EXPECT_EQ(leadingInteger(L" +12x"), 12);
  EXPECT_EQ(leadingInteger(L"-3.7"), -3);
  EXPECT_EQ(leadingInteger(L"- 3"), 0);
  EXPECT_EQ(leadingInteger(L"-３1"), -31);
  EXPECT_TRUE(isInteger(L"３") && isInteger(L" +003 "));
  EXPECT_FALSE(isInteger(L"-") || isInteger(L"３色") || isInteger(L"99999999999999999999999"));
  EXPECT_EQ(leadingInteger(L"99999999999999999999999"), INT_MAX);
}

}  // namespace
}  // namespace kiv
