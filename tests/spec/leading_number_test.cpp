#include "spec/leading_number.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

TEST(LeadingNumber, RealsAreReadWithoutALocale) {
  EXPECT_DOUBLE_EQ(leadingReal(L" +2.50 mm"), 2.5);
  EXPECT_DOUBLE_EQ(leadingReal(L"-.5"), -0.5);
  EXPECT_DOUBLE_EQ(leadingReal(L"1E2x"), 100);
  for (const wchar_t* text : {L"", L"abc", L"inf", L"nan", L"-", L"+-5", L"-+5", L"２"}) {
    EXPECT_DOUBLE_EQ(leadingReal(text), 0) << testing::PrintToString(text);
    EXPECT_FALSE(startsWithNumber(text));
  }
}

}  // namespace
}  // namespace kiv
