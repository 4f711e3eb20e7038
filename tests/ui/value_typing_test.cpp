#include "ui/item_inputs.h"

#include <gtest/gtest.h>

#include "base/lineweights.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

struct Case {
  int kind;
  const wchar_t* typed;
  const wchar_t* value;  // null: refused
};

void expectAll(std::initializer_list<Case> cases) {
  for (const Case& one : cases) {
    const auto value = checkedValue(one.kind, one.typed);
    EXPECT_EQ(value.has_value(), one.value != nullptr)
        << one.kind << " " << ::testing::PrintToString(one.typed);
    if (value && one.value) {
      EXPECT_EQ(*value, one.value);
    }
  }
}

TEST(CheckedValue, NumbersThatAreZeroBecomeZero) {
  expectAll({{kColorKind, L"red", L"0"},
             {kColorKind, L"12", L"12"},
             {kColorKind, L"", L"0"},
             {kTextHeightKind, L"0.000", L"0"},
             {kTextHeightKind, L" 2.5x", L" 2.5x"},
             {kTextAngleKind, L"-45", L"-45"},
             {kTextAngleKind, L"-0", L"0"},
             {kWidthFactorKind, L".8", L".8"}});
}

TEST(CheckedValue, LineweightsTakeTheSpellingOfTheirText) {
  expectAll({{kLineweightKind, L"", L"Default"},
             {kLineweightKind, L"0", L"0.00 mm"},
             {kLineweightKind, L"1", L"1.00 mm"},
             {kLineweightKind, L"2", L"2.00 mm"},
             {kLineweightKind, L"3", nullptr},
             {kLineweightKind, L"b", nullptr},
             {kLineweightKind, L"0.2", nullptr},
             {kLineweightKind, L"0.25", L"0.25 mm"},
             {kLineweightKind, L"0.25 ", L"0.25 mm"},
             {kLineweightKind, L"0.26", nullptr},
             {kLineweightKind, L"0.25 m", nullptr},
             {kLineweightKind, L"0.25 MM", L"0.25 mm"},
             {kLineweightKind, L"bylayer", L"ByLayer"},
             {kLineweightKind, L"ByLa", nullptr}});
  for (const base::Lineweight& weight : base::lineweights()) {
    EXPECT_EQ(checkedValue(kLineweightKind, weight.text), weight.text);
  }
}

TEST(CheckedValue, ALinetypeScaleIsAPlainNumberNotBelowZero) {
  expectAll({{kLinetypeScaleKind, L"", L"1"},
             {kLinetypeScaleKind, L"+2", L"+2"},
             {kLinetypeScaleKind, L" 0 ", L" 0 "},
             {kLinetypeScaleKind, L".5", L".5"},
             {kLinetypeScaleKind, L"-0.0000004", L"-0.0000004"},
             {kLinetypeScaleKind, L"-0.000001", nullptr},
             {kLinetypeScaleKind, L"-0.5", nullptr},
             {kLinetypeScaleKind, L"1.2.3", nullptr},
             {kLinetypeScaleKind, L"1e3", nullptr},
             {kLinetypeScaleKind, L"+-1", nullptr},
             {kLinetypeScaleKind, L".", nullptr},
             {kLinetypeScaleKind, L" ", nullptr}});
}

TEST(CheckedValue, OtherKinds) {
  expectAll({{kTransparencyKind, L"", L"ByLayer"},
             {kTransparencyKind, L"30", L"30"},
             {kVisibilityKind, L"on", L"ON"},
             {kPlotKind, L"Off", L"OFF"},
             {kLockKind, L"O", nullptr},
             {kFreezeKind, L"", nullptr},
             {kLayerKind, L" A* ", L" A* "},
             {kTextListKind, L"", L""}});
}

struct Completion {
  int kind;
  const wchar_t* typed;
  const wchar_t* shown;
};

constexpr Completion kCompletions[] = {
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
  for (const Completion& one : kCompletions) {
    const std::wstring shown = completedValue(one.kind, one.typed);
    EXPECT_EQ(shown, one.shown) << one.kind << " " << ::testing::PrintToString(one.typed);
    EXPECT_EQ(completedValue(one.kind, shown), shown);
  }
}

}  // namespace
}  // namespace kiv
