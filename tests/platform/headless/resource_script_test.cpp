#include "platform/headless/resource_script.h"

#include <gtest/gtest.h>

#include "platform/headless/resource_styles.h"

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

TEST(ResourceScript, ControlsOfEveryKind) {
  const ResourceScript script =
      parsed(dialogWith(LR"(
    GROUPBOX "g", -1, 0, 0, 10, 10
    CTEXT "c", IDC_NAME, 1, 2, 3, 4, NOT WS_VISIBLE
    PUSHBUTTON "p", 1, 0, 0, 1, 1, WS_DISABLED | NOT WS_TABSTOP
    DEFPUSHBUTTON "d", IDOK, 0, 0, 1, 1
    AUTOCHECKBOX "k", 3, 0, 0, 1, 1
    AUTORADIOBUTTON "r", 4, 0, 0, 1, 1, WS_GROUP
    EDITTEXT 5, 0, 0, 1, 1, ES_READONLY
    COMBOBOX 6, 0, 0, 1, 1, CBS_DROPDOWN | WS_VSCROLL
    LISTBOX 7, 0, 0, 1, 1
    CONTROL "", 8, "SysTreeView32", TVS_HASLINES | WS_TABSTOP, 0, 0, 1, 1
    CONTROL "", 9, "SysListView32", LVS_REPORT, 0, 0, 1, 1, WS_EX_CLIENTEDGE
    CONTROL "", 10, "KivGrid", 0x00010000, 0, 0, 1, 1
    CONTROL "o", 11, "Button", BS_OWNERDRAW, 0, 0, 1, 1
    CONTROL "x", 12, "button", BS_AUTOCHECKBOX, 0, 0, 1, 1
    CONTROL "", 13, "Other32", 0, 0, 0, 1, 1
    ICON "", 14, 0, 0, 1, 1)"));
  using K = ControlKind;
  const K kinds[] = {K::kGroupBox,   K::kLabel,       K::kPushButton, K::kPushButton,
                     K::kCheckBox,   K::kRadioButton, K::kEdit,       K::kComboBox,
                     K::kListBox,    K::kTree,        K::kList,       K::kGrid,
                     K::kPushButton, K::kCheckBox,    K::kOther,      K::kIcon};
  const auto& controls = script.dialogs.at(0).controls;
  ASSERT_EQ(controls.size(), std::size(kinds));
  for (std::size_t i = 0; i < controls.size(); ++i) EXPECT_EQ(controls[i].kind, kinds[i]) << i;

  EXPECT_EQ(controls[1].id, 1031);
  EXPECT_EQ(controls[1].height, 4);
  EXPECT_FALSE(controls[1].has(style::kVisible));
  EXPECT_FALSE(controls[1].has(style::kGroup));  // styles of its own
  EXPECT_FALSE(controls[2].has(style::kTabStop));
  EXPECT_TRUE(controls[2].has(style::kDisabled | style::kVisible));
  EXPECT_FALSE(controls[2].isDefaultButton());
  EXPECT_TRUE(controls[3].isDefaultButton());
  EXPECT_TRUE(controls[5].has(style::kGroup | style::kTabStop));
  EXPECT_TRUE(controls[6].has(style::kReadOnly | style::kTabStop));
  EXPECT_FALSE(controls[7].has(style::kDropDownList));
  EXPECT_TRUE(controls[10].has(style::kVisible));
  EXPECT_FALSE(controls[10].has(style::kTabStop));
  EXPECT_TRUE(controls[11].has(style::kTabStop));
}

TEST(ResourceScript, MenusAndIcons) {
  const ResourceScript script = parsed(
      LR"(
123 MENU
BEGIN
    POPUP "条件"
    BEGIN
        POPUP "追加", GRAYED { MENUITEM "画層...", 40021 }
        MENUITEM SEPARATOR
        MENUITEM "off", IDC_FIRST, GRAYED
    END
END
138 ICON "pick.ico"
)");
  const MenuResource* menu = script.findMenu(123);
  ASSERT_NE(menu, nullptr);
  ASSERT_EQ(menu->items.size(), 1U);
  const Menu& items = menu->items[0].items;
  ASSERT_EQ(items.size(), 3U);
  EXPECT_FALSE(items[0].enabled);
  EXPECT_EQ(items[0].items.at(0).text, L"画層...");
  EXPECT_EQ(items[0].items.at(0).id, 40021);
  EXPECT_EQ(items[1].id, 0);
  EXPECT_EQ(items[2].id, 1031);
  EXPECT_FALSE(items[2].enabled);
  ASSERT_EQ(script.icons.size(), 1U);
  EXPECT_EQ(script.icons[0].file, L"pick.ico");
}

TEST(ResourceScript, RefusalsNameLineAndReason) {
  EXPECT_EQ(refusal(L"\nIDD_NONE DIALOGEX 0, 0, 1, 1 BEGIN END"), L"line 2: IDD_NONE is not defined");
  EXPECT_EQ(refusal(L"102 TOOLBAR"), L"line 1: unknown kind of resource TOOLBAR");
  EXPECT_EQ(refusal(L"102 DIALOGEX 0, 0, 1\nBEGIN END"), L"line 2: a comma is missing");
  EXPECT_EQ(refusal(L"102 DIALOGEX 0, 0, 1, 1\nCLASS \"x\""), L"line 2: unknown dialog statement CLASS");
  EXPECT_EQ(refusal(dialogWith(L"SCROLLBAR 1, 0, 0, 1, 1")), L"line 3: unknown control SCROLLBAR");
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

TEST(ResourceScript, RefusalsOfWords) {
  EXPECT_EQ(refusal(L"\n\"open\n"), L"line 2: the text does not end on its line");
  EXPECT_EQ(refusal(L"\"a\\q\""), L"line 1: unknown escape \\q");
  EXPECT_EQ(refusal(L"\n/* open"), L"line 2: the comment does not end");
  EXPECT_EQ(refusal(L"102 @"), L"line 1: no word begins with @");
  EXPECT_EQ(refusal(L"99999999999 MENU"), L"line 1: 99999999999 is no number");
  EXPECT_EQ(refusal(L"12ab MENU"), L"line 1: 12ab is no number");
  EXPECT_EQ(refusal(L"", L"\n#define A (1+2)"), L"header, line 2: (1+2) is no number");
}

// Nesting without end must not use up the stack.
TEST(ResourceScript, DeepMenus) {
  std::wstring script = L"1 MENU ";
  for (int i = 0; i < 5000; ++i) script += L"BEGIN POPUP \"x\" ";
  EXPECT_EQ(refusal(script), L"line 1: the menu is nested too deep");
}

}  // namespace
}  // namespace kiv::headless
