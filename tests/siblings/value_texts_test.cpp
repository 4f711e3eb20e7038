#include "siblings/KivDll/value_texts.h"

#include <gtest/gtest.h>

#include <numbers>

namespace kiv {
namespace {

TEST(ValueTexts, Numbers) {
  EXPECT_EQ(numberText(2.5), L"2.5");
  EXPECT_EQ(numberText(5), L"5");
  EXPECT_EQ(numberText(0.1 + 0.2), L"0.3");
  EXPECT_EQ(numberText(-0.0), L"0");
  EXPECT_EQ(numberText(1e20), L"100000000000000000000");
  EXPECT_EQ(numberText(0.00001), L"0.00001");
  EXPECT_EQ(degreesText(std::numbers::pi / 6), L"30");
  EXPECT_EQ(degreesText(-std::numbers::pi / 2), L"270");
  EXPECT_EQ(degreesText(2 * std::numbers::pi), L"0");
  EXPECT_EQ(degreesText(-1e-13), L"0");
}

TEST(ValueTexts, WeightsAndTransparency) {
  EXPECT_EQ(lineWeightText(AcDb::kLnWt005), L"0.05 mm");
  EXPECT_EQ(lineWeightText(AcDb::kLnWt211), L"2.11 mm");
  EXPECT_EQ(lineWeightText(static_cast<AcDb::LineWeight>(7)), std::nullopt);
  EXPECT_EQ(lineWeightText(AcDb::kLnWtByLwDefault), L"Default");
  EXPECT_EQ(transparencyText(AcCmTransparency{}), L"ByLayer");
  EXPECT_EQ(transparencyText(AcCmTransparency(AcCmTransparency::kByBlock)), L"ByBlock");
  for (int percent = 0; percent <= 90; ++percent) {
    EXPECT_EQ(transparencyText(AcCmTransparency(1 - percent / 100.0)), std::to_wstring(percent));
  }
}

}  // namespace
}  // namespace kiv
