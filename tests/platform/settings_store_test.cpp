#include <gtest/gtest.h>

#include "platform/module_loader.h"
#include "platform/settings.h"

namespace kiv {
namespace {

// This program stands beside a store module.
TEST(SettingsStore, TextsGoThroughTheSiblingModule) {
  EXPECT_EQ(readCommonText(L"MorluxLogOutPath", L"none"), L"none");
  const std::wstring path = L"/記録/" + std::wstring(300, L'x');
  writeCommonText(L"MorluxLogOutPath", path.c_str());
  EXPECT_EQ(readCommonText(L"MorluxLogOutPath", L"none"), path);
  writeCommonInteger(L"KivBlock", 2);
  EXPECT_EQ(readCommonInteger(L"KivBlock", 0), 2);
  writeCommonText(L"Empty", L"");
  EXPECT_EQ(readCommonText(L"Empty", L"none"), L"");
}

TEST(SettingsStore, ATextThatGrowsWhileItIsReadArrivesWhole) {
  writeCommonText(L"Growing", L"long");
  EXPECT_EQ(readCommonText(L"Growing", L"none"), L"long-and-longer");
}

// The store keeps its texts in memory here: they are gone with it.
TEST(SettingsStore, ReleasingLetsTheSiblingGoUntilItIsNeededAgain) {
  writeCommonText(L"Kept", L"for a while");
  EXPECT_EQ(readCommonText(L"Kept", L"none"), L"for a while");
  closeSettingsStore();
  EXPECT_EQ(readCommonText(L"Kept", L"none"), L"none");
  writeCommonText(L"Kept", L"again");
  EXPECT_EQ(readCommonText(L"Kept", L"none"), L"again");
}

TEST(SettingsStore, OverridesAreNotStored) {
  writeCommonInteger(L"KivFileMode", 1);
  overrideCommonSetting(L"KivFileMode", L"5");
  EXPECT_EQ(readCommonInteger(L"kivfilemode", 0), 5);
  writeCommonInteger(L"KivFileMode", 7);
  EXPECT_EQ(readCommonInteger(L"KivFileMode", 0), 7);
  overrideCommonSetting(L"KivFileMode", L"x");
  EXPECT_EQ(readCommonInteger(L"KivFileMode", 3), 3);
  clearSettingOverrides();
  EXPECT_EQ(readCommonInteger(L"KivFileMode", 0), 1);
}

TEST(SettingsStore, ModulesAndFunctionsThatAreMissing) {
  EXPECT_EQ(loadSibling(L"NoSuchModule.arx"), nullptr);
  const auto module = loadSibling(L"kivdll.ARX");
  ASSERT_NE(module, nullptr);
  EXPECT_NE(module->function<void (*)()>("dll_kiv_setcfgCmn"), nullptr);
  EXPECT_EQ(module->function<void (*)()>("dll_kiv_entsel"), nullptr);
}

}  // namespace
}  // namespace kiv
