#include "engine/selection_filter.h"

#include <gtest/gtest.h>

#include "adscodes.h"
#include "engine/selection_set.h"

namespace {

using kiv::Pass;

// The chain as "group=value" texts, as the host finds it.
std::wstring filterOf(Pass pass, std::wstring_view setting) {
  const auto noLists = [](const std::wstring&) { return std::nullopt; };
  const kiv::CompiledSetting compiled = kiv::compileSetting(setting, pass, noLists);
  kiv::BufferChain chain;
  kiv::buildSelectionFilter(pass, compiled.conditions.filter, chain);
  std::wstring text;
  for (const resbuf* rb = chain.get(); rb != nullptr; rb = rb->rbnext) {
    const int group = rb->restype;
    const std::wstring value = group == 62 ? std::to_wstring(rb->resval.rint) : rb->resval.rstring;
    text += (group == -4 ? value : std::to_wstring(group) + L"=" + value) + L" ";
  }
  return text;
}

constexpr wchar_t kTexts[] = L"<or 0=TEXT 0=MTEXT 0=ATTDEF or> ";
constexpr wchar_t kDimensions[] = L"<or 0=DIMENSION 0=LEADER or> ";
constexpr wchar_t kOthers[] = L"<not <or 0=TEXT 0=MTEXT 0=ATTDEF 0=DIMENSION 0=HATCH or> not> ";

TEST(SelectionFilter, WithoutConditionsOnlyTheEntityTypes) {
  EXPECT_EQ(filterOf(Pass::kText, L",***,{,色=1"), kTexts);
  EXPECT_EQ(filterOf(Pass::kDimension, L",***"), kDimensions);
  EXPECT_EQ(filterOf(Pass::kHatch, L",***"), L"0=HATCH ");
  EXPECT_EQ(filterOf(Pass::kOther, L",***"), kOthers);
  // A condition that a selection cannot express adds nothing to the filter.
  EXPECT_EQ(filterOf(Pass::kText, L",文字高さ=2.5,透過性=30,DIMTAD=1,{,色=1"), kTexts);
}

TEST(SelectionFilter, AChainWithARefusedPieceSelectsNothing) {
  kiv::BufferChain chain;
  chain.text(RTDXF0, L"LINE").text(-12345, L"x");
  EXPECT_NE(chain.get(), nullptr);
  EXPECT_TRUE(kiv::SelectionSet(chain).isRefused());
}

TEST(SelectionFilter, ItemsInOrderAndInvertedOnesWrapped) {
  EXPECT_EQ(filterOf(Pass::kText, L",画層=A-*,色<>256,線種=DASHED,字体<>KANJI"),
            std::wstring(L"<and ") + kTexts + L"8=A-* <NOT 62=256 NOT> 6=DASHED <NOT 7=KANJI NOT> and> ");
}

TEST(SelectionFilter, TextStylesAreLeftToTheTestsOfDimensionsAndHatches) {
  EXPECT_EQ(filterOf(Pass::kDimension, L",字体=KANJI"), kDimensions);
  EXPECT_EQ(filterOf(Pass::kHatch, L",字体=KANJI,色=1"), L"<and 0=HATCH 62=1 and> ");
  EXPECT_EQ(filterOf(Pass::kOther, L",字体=KANJI"), std::wstring(L"<and ") + kOthers + L"7=KANJI and> ");
}

TEST(CompiledSetting, UnknownKeysAndKindsOfLayersAreLeftOut) {
  const auto noLists = [](const std::wstring&) { return std::nullopt; };
  const auto setting =
      kiv::compileSetting(L",謎=1,表示=ON,dimtad<>1,{,謎=1,ロック=ON,文字一致のリスト=A.LIST,DIMASZ=3,色=1",
                          Pass::kDimension, noLists);
  EXPECT_TRUE(setting.conditions.filter.empty());
  ASSERT_EQ(setting.conditions.variables.size(), 1U);
  EXPECT_FALSE(setting.conditions.variables[0].equal);
  ASSERT_EQ(setting.results.size(), 2U);
  EXPECT_EQ(setting.results[0].key, L"DIMASZ");
  EXPECT_EQ(setting.results[1].value, L"1");
}

}  // namespace
