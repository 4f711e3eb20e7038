#include "platform/settings.h"

#include <gtest/gtest.h>

namespace kiv {
namespace {

// The store's module does not stand beside this program, so what is not overridden has its fallback.
TEST(Settings, OverridesWinAndEndWithThem) {
  EXPECT_EQ(readCommonInteger(L"KivBlock", 1), 1);
  EXPECT_EQ(readCommonText(L"MorluxLogOutFile", L"none"), L"none");
  overrideCommonSetting(L"KivBlock", L"2");
  overrideCommonSetting(L"MorluxLogOutFile", L"");
  EXPECT_EQ(readCommonInteger(L"kivblock", 1), 2);
  EXPECT_EQ(readCommonText(L"MorluxLogOutFile", L"none"), L"");
  writeCommonInteger(L"KivBlock", 0);
  EXPECT_EQ(readCommonInteger(L"KivBlock", 1), 0);
  overrideCommonSetting(L"KivBlock", L"x");
  EXPECT_EQ(readCommonInteger(L"KivBlock", 1), 1);
  clearSettingOverrides();
  EXPECT_EQ(readCommonInteger(L"KivBlock", 1), 1);
}

}  // namespace
}  // namespace kiv
