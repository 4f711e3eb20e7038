#include "engine/value_forms.h"

#include <gtest/gtest.h>

#include "engine/numeric_compare.h"

namespace {

using kiv::Transparency;

TEST(ValueForms, LineweightsByTheirSteps) {
  EXPECT_EQ(kiv::lineWeightNumber(L"0.25 mm"), 25);
  EXPECT_EQ(kiv::lineWeightNumber(L"0.25 MM"), 25);
  EXPECT_EQ(kiv::lineWeightNumber(L"2.11 mm"), 211);
  EXPECT_EQ(kiv::lineWeightNumber(L"25"), 25);
  EXPECT_EQ(kiv::lineWeightNumber(L"bylayer"), -1);
  EXPECT_EQ(kiv::lineWeightNumber(L"ByBlock"), -2);
  EXPECT_EQ(kiv::lineWeightNumber(L"DEFAULT"), -3);
  EXPECT_TRUE(kiv::isLineWeight(-1));
  EXPECT_FALSE(kiv::isLineWeight(-4));
  EXPECT_FALSE(kiv::isLineWeight(33));
}

TEST(ValueForms, LineweightResultsAreWordsOrSteps) {
  EXPECT_EQ(kiv::lineWeightResult(L"0.25 mm"), 25);
  EXPECT_EQ(kiv::lineWeightResult(L"0"), 0);
  EXPECT_EQ(kiv::lineWeightResult(L"2.11 mm"), 211);
  EXPECT_EQ(kiv::lineWeightResult(L"bylayer"), -1);
  EXPECT_EQ(kiv::lineWeightResult(L"BYBLOCK"), -2);
  for (const wchar_t* text : {L"Default", L"0.33 mm", L"-1", L"-2", L"-4"}) {
    EXPECT_EQ(kiv::lineWeightResult(text), -3) << testing::PrintToString(text);
  }
}

TEST(ValueForms, TransparencyByPercentageOrMethod) {
  EXPECT_EQ(kiv::transparencyValue(L"30"), (Transparency{Transparency::Method::kPercent, 30}));
  EXPECT_EQ(kiv::transparencyValue(L"BYBLOCK").method, Transparency::Method::kByBlock);
  EXPECT_EQ(kiv::transparencyValue(L"ByLayer").method, Transparency::Method::kByLayer);
}

TEST(ValueForms, HeightFactorsEndInX) {
  EXPECT_DOUBLE_EQ(kiv::heightValue(L"2x").applyTo(3.5), 7.0);
  EXPECT_DOUBLE_EQ(kiv::heightValue(L"0.5X").applyTo(3.0), 1.5);
  EXPECT_DOUBLE_EQ(kiv::heightValue(L"2.5").applyTo(3.5), 2.5);
}

TEST(ValueForms, BlockNameStandsInTheLastParentheses) {
  EXPECT_EQ(kiv::blockNameOfDisplayForm(L"黒丸 (_DOT)"), L"_DOT");
  EXPECT_EQ(kiv::blockNameOfDisplayForm(L"ﾃｨｯｸ(太) (_ARCHTIC)"), L"_ARCHTIC");
  EXPECT_FALSE(kiv::blockNameOfDisplayForm(L"_DOT"));
  EXPECT_FALSE(kiv::blockNameOfDisplayForm(L"a) (b"));
}

TEST(NumericCompare, SixDecimalsDecide) {
  EXPECT_TRUE(kiv::equalNumbers(2.5, 2.5000004));
  EXPECT_FALSE(kiv::equalNumbers(2.5, 2.500002));
  EXPECT_TRUE(kiv::equalNumbers(0.1 + 0.2, 0.3));
  EXPECT_FALSE(kiv::equalNumbers(1e15, 1e15 + 2));
}

TEST(NumericCompare, AnglesPointTheSameWay) {
  EXPECT_TRUE(kiv::equalAngles(360, 0));
  EXPECT_TRUE(kiv::equalAngles(-90, 270));
  EXPECT_TRUE(kiv::equalAngles(359.99999999, 0));
  EXPECT_TRUE(kiv::equalAngles(-1e-9, 0));
  EXPECT_FALSE(kiv::equalAngles(90, 270));
  EXPECT_DOUBLE_EQ(kiv::normalisedDegrees(725), 5);
}

}  // namespace
