#include <gtest/gtest.h>

#include <string>

#include "acedads.h"
#include "acutads.h"
#include "embedded/editor/host.h"

namespace {

// Those of filters are seen in selection_test.
TEST(ResultBuffer, CodesThatNoFilterHoldsDecideTheTypesOfTheirValues) {
  const ads_point point = {1, 2, 3};
  const ads_name entity = {42, 0};
  resbuf* const list = acutBuildList(10, point, RTLB, RTSHORT, -7, RTLE, 1071, 70000, -1, entity, RTNONE);
  ASSERT_NE(list, nullptr);
  const resbuf* at = list;
  const auto next = [&] { return at = at->rbnext; };
  EXPECT_EQ(at->resval.rpoint[2], 3);
  EXPECT_EQ(next()->restype, RTLB);
  EXPECT_EQ(next()->resval.rint, -7);
  EXPECT_EQ(next()->restype, RTLE);
  EXPECT_EQ(next()->resval.rlong, 70000);
  EXPECT_EQ(next()->resval.rlname[0], 42);
  EXPECT_EQ(at->rbnext, nullptr);
  acutRelRb(list);
}

TEST(ResultBuffer, AnUnknownCodeGivesNoList) { EXPECT_EQ(acutBuildList(8, L"A", 4711, 1, RTNONE), nullptr); }

// A function's own list is the host's; an inner call does not touch that of the outer one.
TEST(ResultBuffer, FunctionsAreCalledByTheirNames) {
  cad::Host& host = cad::Host::instance();
  const auto call = [](const wchar_t* name, int value) {
    resbuf* const list = acutBuildList(RTSTR, name, RTSHORT, value, RTSTR, L"text", RTNONE);
    resbuf* result = list;
    const int outcome = acedInvoke(list, &result);
    acutRelRb(list);
    if (outcome != RTNORM) return result == nullptr ? outcome : 0;
    const int answer = result == nullptr ? -1 : result->restype == RTSHORT ? result->resval.rint : -2;
    acutRelRb(result);
    return answer;
  };
  host.setFunction(L"Twice", [&call] {
    resbuf* const arguments = acedGetArgs();
    EXPECT_EQ(acutRelRb(arguments), RTNORM);
    const int value = arguments->resval.rint;
    EXPECT_EQ(value > 1 ? call(L"TWICE", 1) : 2, 2);
    EXPECT_EQ(acedGetArgs(), arguments);
    EXPECT_STREQ(arguments->rbnext->resval.rstring, L"text");
    EXPECT_EQ(acedRetNil(), RTNORM);
    EXPECT_EQ(acedRetInt(40000), RTERROR);
    if (value > 0) acedRetInt(2 * value);
  });
  EXPECT_EQ(call(L"twice", 21), 42);
  EXPECT_EQ(call(L"twice", 0), -2);
  host.setFunction(L"TWICE", [] {});
  EXPECT_EQ(call(L"twice", 1), -1);
  host.setFunction(L"TWICE", {});
  EXPECT_EQ(call(L"twice", 1), RTERROR);
  resbuf* result = nullptr;
  EXPECT_EQ(acedInvoke(nullptr, &result), RTERROR);
  EXPECT_EQ(acedGetArgs(), nullptr);
  EXPECT_EQ(acedRetInt(1), RTERROR);
}

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
