#include "base/save_format.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(SaveFormat, OnlyAnExtensionOfThreeCharactersIsCut) {
  EXPECT_EQ(savedName(L"a.dwg", SaveFormat::kDwg), L"a.DWG");
  EXPECT_EQ(savedName(L"plan.v2.dxf", SaveFormat::kDxf), L"plan.v2.DXF");
  EXPECT_EQ(savedName(L"plan", SaveFormat::kDwt), L"plan.DWT");
  EXPECT_EQ(savedName(L"plan.dx", SaveFormat::kDxf), L"plan.dx.DXF");
  EXPECT_EQ(savedName(L".dxf", SaveFormat::kDxf), L".DXF");
}

}  // namespace
}  // namespace base
