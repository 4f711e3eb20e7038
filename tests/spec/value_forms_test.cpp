#include "spec/value_forms.h"

#include <gtest/gtest.h>

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

}  // namespace
