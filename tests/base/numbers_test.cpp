#include "base/numbers.h"

#include <gtest/gtest.h>

#include <climits>

namespace base {
namespace {

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

}  // namespace
}  // namespace base
