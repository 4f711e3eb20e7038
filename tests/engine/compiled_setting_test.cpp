#include "engine/compiled_setting.h"

#include <gtest/gtest.h>

namespace {

// "key=value;" or "key<>value;" for each item.
std::wstring shown(const std::vector<kiv::FlatItem>& items) {
  std::wstring text;
  for (const kiv::FlatItem& item : items) text += item.key + (item.equal ? L"=" : L"<>") + item.value + L";";
  return text;
}

TEST(FlatSetting, ConditionsStandBeforeTheBraceAndResultsAfterIt) {
  const auto setting = kiv::parseFlatSetting(L",画層=A-*,色<>7,{,画層=B-*,色=3");
  EXPECT_EQ(shown(setting.conditions), L"画層=A-*;色<>7;");
  EXPECT_EQ(shown(setting.results), L"画層=B-*;色=3;");
}

TEST(FlatSetting, WildcardSettingHasNoConditions) {
  const auto setting = kiv::parseFlatSetting(L",***,{,文字高さ=2.5");
  EXPECT_TRUE(setting.conditions.empty());
  EXPECT_EQ(shown(setting.results), L"文字高さ=2.5;");
}

TEST(FlatSetting, PatternsKeepTheirCommas) {
  const auto setting = kiv::parseFlatSetting(L",画層=A-*,,B-*,,~C,線種<>X,,***,{,DIMPOST=a,,b=c,,,色=1");
  EXPECT_EQ(shown(setting.conditions), L"画層=A-*,B-*,~C;線種<>X,***;");
  EXPECT_EQ(shown(setting.results), L"DIMPOST=a,b=c,;色=1;");
}

TEST(FlatSetting, FirstSignSeparatesAndResultsHaveNoSense) {
  const auto setting = kiv::parseFlatSetting(L",画層=A<>B,色<>1=2,{,画層<>X");
  EXPECT_EQ(shown(setting.conditions), L"画層=A<>B;色<>1=2;");
  EXPECT_EQ(shown(setting.results), L"画層=X;");
}

TEST(CompiledSetting, UnknownKeysAndKindsOfLayersAreLeftOut) {
  const auto noLists = [](const std::wstring&) { return std::nullopt; };
  const auto setting =
      kiv::compileSetting(L",謎=1,表示=ON,dimtad<>1,{,謎=1,ロック=ON,文字一致のリスト=A.LIST,DIMASZ=3,色=1",
                          kiv::Pass::kDimension, noLists);
  EXPECT_TRUE(setting.conditions.filter.empty());
  ASSERT_EQ(setting.conditions.variables.size(), 1U);
  EXPECT_FALSE(setting.conditions.variables[0].equal);
  ASSERT_EQ(setting.results.size(), 2U);
  EXPECT_EQ(setting.results[0].key, L"DIMASZ");
  EXPECT_EQ(setting.results[1].value, L"1");
}

}  // namespace
