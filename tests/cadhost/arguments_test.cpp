#include "cadhost/arguments.h"

#include <gtest/gtest.h>

namespace cadhost {
namespace {

TEST(Arguments, OptionsAndDrawingsMayBeMixed) {
  const auto parsed = parseArguments({L"a.dxf", L"--module", L"X.ARX", L"--script", L"s.scr", L"--size",
                                      L"1200x800", L"--module", L"Y.ARX", L"b.dxf"});
  ASSERT_TRUE(parsed.ok());
  EXPECT_EQ(parsed.value().drawings, (std::vector<std::wstring>{L"a.dxf", L"b.dxf"}));
  EXPECT_EQ(parsed.value().modules, (std::vector<std::wstring>{L"X.ARX", L"Y.ARX"}));
  EXPECT_EQ(parsed.value().script, L"s.scr");
  EXPECT_EQ(parsed.value().width, 1200);
  EXPECT_EQ(parsed.value().height, 800);
}

TEST(Arguments, TheRefusalNamesTheOption) {
  for (const std::vector<std::wstring>& words : std::vector<std::vector<std::wstring>>{
           {L"--wide"}, {L"--script"}, {L"--script", L"--size"}, {L"a.dxf", L"--module"}}) {
    const auto parsed = parseArguments(words);
    ASSERT_FALSE(parsed.ok()) << words.size();
    EXPECT_TRUE(parsed.failure().place.starts_with(L"--"));
  }
}

TEST(Arguments, SizesOutsideAWindowsLimitsAreRefused) {
  for (const wchar_t* size : {L"1200", L"1200x", L"x800", L"0x0", L"-5x800", L"1200x800x2", L"199x800",
                              L"1e3x800", L"99999999999x800"})
    EXPECT_FALSE(parseArguments({L"--size", size}).ok()) << size;
  EXPECT_TRUE(parseArguments({L"--size", L"200X20000"}).ok());
}

}  // namespace
}  // namespace cadhost
