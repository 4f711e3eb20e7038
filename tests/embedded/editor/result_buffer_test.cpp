#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "acutads.h"
#include "embedded/editor/host.h"

namespace {

struct Release {
  void operator()(resbuf* list) const { acutRelRb(list); }
};
using List = std::unique_ptr<resbuf, Release>;

TEST(ResultBuffer, CodesDecideTheTypesOfValues) {
  const ads_point point = {1, 2, 3};
  const ads_name entity = {42, 0};
  const List list(acutBuildList(-4, L"<and", RTDXF0, L"TEXT", 8, L"WALL", 62, 5, 40, 2.5, 10, point, RTLB,
                                RTSHORT, -7, RTLE, -3, 1000, L"data", 1071, 70000, -1, entity, RTNONE));
  ASSERT_TRUE(list);
  const resbuf* at = list.get();
  const auto next = [&] { return at = at->rbnext; };
  EXPECT_EQ(at->restype, -4);
  EXPECT_STREQ(at->resval.rstring, L"<and");
  EXPECT_EQ(next()->restype, 0);
  EXPECT_STREQ(at->resval.rstring, L"TEXT");
  EXPECT_STREQ(next()->resval.rstring, L"WALL");
  EXPECT_EQ(next()->resval.rint, 5);
  EXPECT_EQ(next()->resval.rreal, 2.5);
  EXPECT_EQ(next()->resval.rpoint[2], 3);
  EXPECT_EQ(next()->restype, RTLB);
  EXPECT_EQ(next()->resval.rint, -7);
  EXPECT_EQ(next()->restype, RTLE);
  EXPECT_EQ(next()->restype, -3);
  EXPECT_STREQ(next()->resval.rstring, L"data");
  EXPECT_EQ(next()->resval.rlong, 70000);
  EXPECT_EQ(next()->resval.rlname[0], 42);
  EXPECT_EQ(at->rbnext, nullptr);
}

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
