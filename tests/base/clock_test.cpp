#include "base/clock.h"

#include <gtest/gtest.h>

#include "tests/support/temp_path.h"

namespace base {
namespace {

TEST(Clock, FormatsLocalTimeAndLimitsTheText) {
  test_support::setTimeZone("JST-9");
  setClock([] { return std::time_t{1794609450}; });
  EXPECT_EQ(localTimeText(L"%Y%m%d_%Hh%Mm%Ss"), L"20261114_07h37m30s");
  EXPECT_EQ(localTimeText(L"%Y年%m月%d日 %H:%M:%S"), L"2026年11月14日 07:37:30");
  EXPECT_EQ(localTimeText(std::wstring(127, L'x').c_str()).size(), 127U);
  EXPECT_EQ(localTimeText(std::wstring(128, L'x').c_str()), L"");
  setClock({});
  EXPECT_NE(localTimeText(L"%Y"), L"");
}

}  // namespace
}  // namespace base
