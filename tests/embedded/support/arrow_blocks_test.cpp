#include "embedded/support/arrow_blocks.h"

#include <cmath>

#include <gtest/gtest.h>

#include "tests/embedded/dxf/dxf_text.h"

namespace cad::support {
namespace {

constexpr const wchar_t* kNames[] = {
    L"_CLOSEDBLANK", L"_CLOSED",     L"_DOT",         L"_ARCHTICK", L"_OBLIQUE",  L"_OPEN",  L"_ORIGIN",
    L"_ORIGIN2",     L"_OPEN90",     L"_OPEN30",      L"_DOTSMALL", L"_DOTBLANK", L"_SMALL", L"_BOXBLANK",
    L"_BOXFILLED",   L"_DATUMBLANK", L"_DATUMFILLED", L"_INTEGRAL", L"_NONE"};

std::unique_ptr<Drawing> drawing(const char* version) {
  return dxf::read(dxf::drawingText(version, "0 LINE|8 0"));
}

TEST(ArrowBlocks, EveryBuiltInNameIsDefinedOnceInEveryVersion) {
  for (const char* version : {"AC1009", "AC1012", "AC1015", "AC1032"}) {
    auto target = drawing(version);
    ASSERT_TRUE(target) << version;
    for (const wchar_t* name : kNames) {
      const auto made = ensureArrowBlock(*target, name);
      ASSERT_TRUE(made.ok()) << version;
      EXPECT_EQ(ensureArrowBlock(*target, name).value(), made.value());
    }
    auto again = dxf::read(dxf::saved(*target));
    ASSERT_TRUE(again) << version;
    for (const wchar_t* name : kNames) {
      const RecordId block = again->find(Table::kBlock, std::wstring_view(name));
      ASSERT_NE(block, kNoRecord);
      EXPECT_EQ(again->entitiesOf(block).empty(), std::wstring_view(name) == L"_NONE");
    }
  }
}

TEST(ArrowBlocks, HaveTheirOwnNamesOnly) {
  auto target = drawing("AC1015");
  for (const wchar_t* name : {L"_archtic", L"MYARROW", L".", L"DOT"})
    EXPECT_FALSE(ensureArrowBlock(*target, name).ok());
  // Names were upper-case before the 2000 format.
  auto before = drawing("AC1009");
  const RecordId old = ensureArrowBlock(*before, L"_Dot").value();
  EXPECT_EQ(before->names().text(before->name(old, Property::kName)), L"_DOT");
}

TEST(ArrowBlocks, TheIntegralSignPassesThroughThePoint) {
  for (const Shape& shape : findArrowBlock(L"_INTEGRAL")->shapes) {
    const auto& arc = std::get<ArcShape>(shape);
    EXPECT_NEAR(std::hypot(arc.centre.x, arc.centre.y), arc.radius, 1e-6);
    const double towards = std::atan2(-arc.centre.y, -arc.centre.x) * 180 / 3.14159265358979;
    EXPECT_TRUE(std::fabs(towards - arc.end) < 1e-3 || std::fabs(towards + 360 - arc.end) < 1e-3) << towards;
  }
}

}  // namespace
}  // namespace cad::support
