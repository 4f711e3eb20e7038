#include "engine/flat_setting.h"

#include <gtest/gtest.h>

#include <array>

#include "engine/record_filter.h"

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

struct Value {
  int number;
  bool equal;
};

bool passes(std::initializer_list<Value> values, int property) {
  return kiv::passesValues(std::span<const Value>(values.begin(), values.size()),
                           [&](const Value& value) { return value.number == property; });
}

TEST(RecordFilter, FirstMatchDecidesAndTheLastSenseDecidesTheRest) {
  EXPECT_TRUE(passes({}, 1));
  EXPECT_TRUE(passes({{1, true}, {2, true}}, 2));
  EXPECT_FALSE(passes({{1, true}, {2, true}}, 3));
  EXPECT_FALSE(passes({{1, false}, {2, false}}, 2));
  EXPECT_TRUE(passes({{1, false}, {2, false}}, 3));
  // The first match wins over a later one of the other sense.
  EXPECT_TRUE(passes({{1, true}, {1, false}}, 1));
  EXPECT_FALSE(passes({{1, false}, {1, true}}, 1));
  // Mixed senses: what matches nothing goes by the last value alone.
  EXPECT_FALSE(passes({{1, false}, {2, true}}, 3));
  EXPECT_TRUE(passes({{2, true}, {1, false}}, 3));
}

}  // namespace
