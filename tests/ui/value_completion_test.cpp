#include "ui/value_completion.h"

#include <gtest/gtest.h>

#include "spec/item_kinds.h"

namespace kiv {
namespace {

struct Case {
  int kind;
  const wchar_t* typed;
  const wchar_t* shown;
};

constexpr Case kCases[] = {
    {kVisibilityKind, L"o", L"o"},
    {kLockKind, L"offx", L"off"},
    {kFreezeKind, L"onf", L"on"},
    {kPlotKind, L"x", L""},
    {kLineweightKind, L"0.25 m", L"0.25 m"},
    {kLineweightKind, L"0.26", L"0.2"},
    {kLineweightKind, L"BYLAYER", L"BYLAYER"},
    {kLineweightKind, L"byx", L"by"},
    {kLineweightKind, L"9", L""},
    {kTransparencyKind, L"byl", L"byl"},
    {kTransparencyKind, L"B1", L"B"},
    {kTransparencyKind, L"ByBlocks", L"ByBlock"},
    {kTransparencyKind, L"250", L"25"},
    {kTransparencyKind, L"095", L"90"},
    {kTransparencyKind, L"0999", L"90"},
    {kTransparencyKind, L"05", L"05"},
    {kTransparencyKind, L"90", L"90"},
    {kTransparencyKind, L"91", L"90"},
    {kTransparencyKind, L"1a", L"1"},
    {kTransparencyKind, L"-5", L"5"},
    {kTransparencyKind, L"x", L""},
    {kColorKind, L"red", L"red"},
    {kLinetypeScaleKind, L"1.2.3", L"1.2.3"},
    {kLayerKind, L"on9", L"on9"},
};

TEST(ValueCompletion, ShortensWhatNoValueBeginsWith) {
  for (const Case& one : kCases) {
    const std::wstring shown = completedValue(one.kind, one.typed);
    EXPECT_EQ(shown, one.shown) << one.kind << " " << ::testing::PrintToString(one.typed);
    EXPECT_EQ(completedValue(one.kind, shown), shown);
  }
}

}  // namespace
}  // namespace kiv
