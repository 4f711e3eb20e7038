#include "platform/headless/resource_script.h"

#include <gtest/gtest.h>

namespace kiv::headless {
namespace {

constexpr const wchar_t* kHeader =
    LR"(
#pragma once
#ifndef IDOK
#define IDOK 1  // as the system has it
#endif
#define IDD_TEST 0x66
#define IDC_NAME 1031
#define IDC_FIRST IDC_NAME
#define GUARD
)";

ResourceScript parsed(std::wstring_view script) {
  auto result = parseResourceScript(script, kHeader);
  EXPECT_TRUE(result.ok()) << (result.ok() ? 0 : 1);
  return result ? std::move(result.value()) : ResourceScript();
}

std::wstring refusal(std::wstring_view script, std::wstring_view header = kHeader) {
  auto result = parseResourceScript(script, header);
  return result ? L"no failure" : result.failure().text();
}

// A dialog with these control statements from line 3 on.
std::wstring dialogWith(const std::wstring& controls) {
  return L"IDD_TEST DIALOGEX 0, 0, 100, 50\nBEGIN\n" + controls + L"\nEND\n";
}

TEST(ResourceScript, DialogWithItsStatements) {
  const ResourceScript script = parsed(
      LR"(#include <winresrc.h>
#pragma code_page(65001)
/* a block
   comment */ LANGUAGE 0x11, 0x01
IDD_TEST DIALOGEX 1, -2, 352, 200
STYLE DS_SETFONT | WS_POPUP | WS_CAPTION
EXSTYLE 0x200
CAPTION "ﾌｧｲﾙ変換"  // not "this"
FONT 9, "MS UI Gothic", 400, 0, 0x80
{
    LTEXT "a ""quoted"" \"text\"\n// no comment\t\\", -1, 14, 18, 40, 9
}
)");
  const DialogResource* dialog = script.findDialog(102);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->x, 1);
  EXPECT_EQ(dialog->y, -2);
  EXPECT_EQ(dialog->width, 352);
  EXPECT_EQ(dialog->caption, L"ﾌｧｲﾙ変換");
  EXPECT_EQ(dialog->style, 0x40U | 0x80000000U | 0x00C00000U);
  EXPECT_EQ(dialog->fontName, L"MS UI Gothic");
  EXPECT_EQ(dialog->fontSize, 9);
  EXPECT_EQ(dialog->line, 5);
  ASSERT_EQ(dialog->controls.size(), 1U);
  EXPECT_EQ(dialog->controls[0].caption, L"a \"quoted\" \"text\"\n// no comment\t\\");
  EXPECT_EQ(dialog->controls[0].line, 11);
  EXPECT_EQ(script.findDialog(103), nullptr);
}

TEST(ResourceScript, RefusalsNameLineAndReason) {
  EXPECT_EQ(refusal(L"\nIDD_NONE DIALOGEX 0, 0, 1, 1 BEGIN END"), L"line 2: IDD_NONE is not defined");
  EXPECT_EQ(refusal(L"102 TOOLBAR"), L"line 1: unknown kind of resource TOOLBAR");
  EXPECT_EQ(refusal(L"102 DIALOGEX 0, 0, 1\nBEGIN END"), L"line 2: a comma is missing");
  EXPECT_EQ(refusal(L"102 DIALOGEX 0, 0, 1, 1\nCLASS \"x\""), L"line 2: unknown dialog statement CLASS");
  EXPECT_EQ(refusal(dialogWith(L"SCROLLBAR 1, 0, 0, 1, 1")), L"line 3: unknown control SCROLLBAR");
  EXPECT_EQ(refusal(dialogWith(L"CONTROL \"\", 1, \"Other32\", 0, 0, 0, 1, 1")),
            L"line 3: unknown control class Other32");
  EXPECT_EQ(refusal(dialogWith(L"LTEXT 5, 0, 0, 1, 1")), L"line 3: a text is missing");
  EXPECT_EQ(refusal(dialogWith(L"EDITTEXT 5, 0, 0, 1, 1, WS_TABSTOPP")),
            L"line 3: unknown style WS_TABSTOPP");
  EXPECT_EQ(refusal(dialogWith(L"EDITTEXT 5, 0, 0, 1, 1,")), L"line 4: unknown style END");
  EXPECT_EQ(refusal(L"102 DIALOGEX 0, 0, 1, 1\nBEGIN\n"), L"line 3: END is missing");
  EXPECT_EQ(refusal(dialogWith(L"") + dialogWith(L"")), L"line 5: dialog 102 stands here twice");
  EXPECT_EQ(refusal(L"1 MENU BEGIN MENUITEM \"x\", 0 END"), L"line 1: a menu item cannot have the id 0");
  EXPECT_EQ(refusal(L"1 ACCELERATORS BEGIN \"^A\", 5, VIRTKEY, ALT END"),
            L"line 1: an access key is one of A to Z");
  EXPECT_EQ(refusal(L"1 ACCELERATORS BEGIN \"A\", 5, VIRTKEY, CONTROL END"),
            L"line 1: an access key ends with VIRTKEY, ALT");
  EXPECT_EQ(refusal(L"1 MENU BEGIN MENUITEM \"x\", 5, BOLD END"),
            L"line 1: unknown option BOLD of a menu item");
}

}  // namespace
}  // namespace kiv::headless
