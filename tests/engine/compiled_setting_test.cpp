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
  const struct {
    const wchar_t *line, *conditions, *results;
  } cases[] = {
      {L",画層=A-*,色<>7,{,画層=B-*,色=3", L"画層=A-*;色<>7;", L"画層=B-*;色=3;"},
      {L",***,{,文字高さ=2.5", L"", L"文字高さ=2.5;"},
      // Patterns keep their commas.
      {L",画層=A-*,,B-*,,~C,線種<>X,,***,{,DIMPOST=a,,b=c,,,色=1", L"画層=A-*,B-*,~C;線種<>X,***;",
       L"DIMPOST=a,b=c,;色=1;"},
      // The first sign separates, and results have no sense.
      {L",画層=A<>B,色<>1=2,{,画層<>X", L"画層=A<>B;色<>1=2;", L"画層=X;"},
  };
  for (const auto& c : cases) {
    const kiv::FlatSetting setting = kiv::parseFlatSetting(c.line);
    EXPECT_EQ(shown(setting.conditions), c.conditions);
    EXPECT_EQ(shown(setting.results), c.results);
  }
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
