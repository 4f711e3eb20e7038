// The settings module as the suite loads it.

#include <gtest/gtest.h>

#include "base/files.h"
#include "platform/module_loader.h"
#include "platform/settings.h"
#include "siblings/KivDll/interface.h"
#include "tests/embedded/editor/host_fixture.h"

namespace kiv {
namespace {

void setEnvironment(const std::filesystem::path& folder) {
  test_support::setEnvironment("KIV_CONFIG_FOLDER", folder);
}

using SettingsEntry = cad_test::HostTest;

TEST_F(SettingsEntry, TextsArriveWholeOrCut) {
  const std::filesystem::path folder = folder_ / "settings";
  setEnvironment(folder);
  const auto module = loadSibling(L"KivDll.arx");
  ASSERT_NE(module, nullptr);
  const auto get = module->function<GetCommonSetting*>("dll_kiv_getcfgCmn");
  const auto set = module->function<SetCommonSetting*>("dll_kiv_setcfgCmn");
  ASSERT_TRUE(get != nullptr && set != nullptr);
  EXPECT_EQ(get(L"MorluxLogOutPath", nullptr, 0), -1);
  EXPECT_EQ(set(L"MorluxLogOutPath", L"記録フォルダ"), 1);
  EXPECT_EQ(get(L"morluxlogoutpath", nullptr, 0), 6);
  wchar_t cut[4] = L"xxx";
  EXPECT_EQ(get(L"MorluxLogOutPath", cut, 4), 6);
  EXPECT_STREQ(cut, L"記録フ");
  EXPECT_EQ(set(nullptr, L"x"), 0);
  EXPECT_EQ(set(L"x", nullptr), 0);
  EXPECT_EQ(get(nullptr, cut, 4), -1);
  EXPECT_TRUE(std::filesystem::exists(folder / "common.cfg"));

  // The wrapper finds the same module beside this program.
  writeCommonInteger(L"KivBlock", 2);
  EXPECT_EQ(readCommonInteger(L"KivBlock", 0), 2);
  EXPECT_EQ(readCommonText(L"MorluxLogOutPath", L""), L"記録フォルダ");
}

TEST_F(SettingsEntry, WhatCameAlongHoldsUntilThePersonSaysOtherwise) {
  setEnvironment(folder_ / "none yet");
  EXPECT_EQ(readCommonInteger(L"KivFileMode", 0), 1);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "none yet"));
  writeCommonInteger(L"KivFileMode", 0);
  EXPECT_EQ(readCommonInteger(L"KivFileMode", 7), 0);
}

TEST_F(SettingsEntry, ALossIsSaidOnce) {
  setEnvironment(make("no-folder", "") / "below");
  writeCommonText(L"KivBlock", L"1");
  EXPECT_EQ(printed_, L"\nKivｴﾗｰ:設定を保存できません.");
  writeCommonText(L"KivFileMode", L"1");
  EXPECT_EQ(printed_, L"\nKivｴﾗｰ:設定を保存できません.");
}

}  // namespace
}  // namespace kiv
