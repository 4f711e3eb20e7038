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

TEST(ValueForms, ColorsByTheLargerHalf) {
  EXPECT_EQ(kiv::colorNumber(L"7:白"), 7);
  EXPECT_EQ(kiv::colorNumber(L"256:BYLAYER"), 256);
  EXPECT_EQ(kiv::colorNumber(L" 12 34 "), 34);
  EXPECT_EQ(kiv::colorNumber(L"34 12"), 34);
  EXPECT_EQ(kiv::colorNumber(L"1 2:300"), 300);  // the colon stands after the blank: cut there
  EXPECT_EQ(kiv::colorNumber(L"1:2 300"), 300);  // the blank stands after the colon: cut at the blank
  EXPECT_EQ(kiv::colorNumber(L"red"), 0);
}

TEST(ValueForms, ColorFormsOfFilesAndPeople) {
  for (const int number : {0, 1, 7, 8, 255, 256, 257}) {
    EXPECT_EQ(kiv::colorNumber(kiv::colorText(number)), number);
    EXPECT_EQ(kiv::colorNumberOfFileText(kiv::colorFileText(number)), number);
  }
  EXPECT_EQ(kiv::colorText(0), L"0:BYBLOCK");
  EXPECT_EQ(kiv::colorText(4), L"4:水色");
  EXPECT_EQ(kiv::colorText(8), L"8");
  EXPECT_EQ(kiv::colorFileText(256), L"BYLAYER");
  EXPECT_EQ(kiv::colorNumberOfFileText(L"x bylayer"), 256);
}

}  // namespace
