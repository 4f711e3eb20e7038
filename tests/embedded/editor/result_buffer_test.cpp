#include <gtest/gtest.h>

#include <string>

#include "acutads.h"
#include "embedded/editor/host.h"

namespace {

TEST(ResultBuffer, AnUnknownCodeGivesNoList) { EXPECT_EQ(acutBuildList(8, L"A", 4711, 1, RTNONE), nullptr); }

TEST(ResultBuffer, PrintsWideTextsByThePlainConversion) {
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  EXPECT_EQ(acutPrintf(L"\n[%s] %d/%5.2f %c %S 100%%", L"図面", 3, 1.5, L'字', "narrow"), RTNORM);
  const std::wstring longText(132, L'あ');
  EXPECT_EQ(acutPrintf(L"%s", longText.c_str()), RTNORM);
  EXPECT_EQ(acutPrintf(L"%s.", longText.c_str()), RTERROR);
  cad::Host::instance().setOutput(nullptr);
  EXPECT_EQ(printed, L"\n[図面] 3/ 1.50 字 narrow 100%" + longText);
}

}  // namespace
