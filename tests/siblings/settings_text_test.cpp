#include "siblings/KivDll/settings_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kiv {
namespace {

TEST(SettingsText, AnyTextSurvives) {
  std::wstring every;
  for (wchar_t c = 1; c < 0x180; ++c) every += c;
  const std::wstring values[] = {L"",
                                 L"C:\\図面\\記録",
                                 L" blanks at both ends\t",
                                 L"　全角の空白　",
                                 L"two\r\nlines\n",
                                 L"a = b # no comment",
                                 L"\\u0041\\n",
                                 std::wstring(1, static_cast<wchar_t>(0xDC80)) + L"file",
                                 L"\xFEFFmark",
                                 every};
  const std::wstring keys[] = {L"KivTextHeight/Par00", L"a=b", L"#mark", L" key ", L"日本語\n"};
  for (const std::wstring& key : keys) {
    for (const std::wstring& value : values) {
      SettingsText text("first = 1\n");
      ASSERT_TRUE(text.set(key, value) || value.empty());
      const std::string bytes = text.bytes();
      const SettingsText again(bytes);
      EXPECT_EQ(again.find(key), value);
      EXPECT_EQ(again.find(L"first"), L"1");
      EXPECT_EQ(std::ranges::count(bytes, '\n'), 2);
    }
  }
}

TEST(SettingsText, KeysIgnoreCaseAndKeepTheirLine) {
  SettingsText text("KivBlock = 1\r\nOther=2");
  EXPECT_EQ(text.find(L"KIVBLOCK"), L"1");
  EXPECT_EQ(text.find(L"Kiv"), std::nullopt);
  EXPECT_FALSE(text.set(L"kivblock", L"1")) << "nothing changes";
  EXPECT_TRUE(text.set(L"kivblock", L"0"));
  EXPECT_TRUE(text.set(L"New", L"3"));
  EXPECT_FALSE(text.set(L"", L"3"));
  EXPECT_EQ(text.bytes(), "kivblock = 0\nOther=2\nNew = 3\n");
}

TEST(SettingsText, WhatIsNotUnderstoodStays) {
  const std::string damaged =
      "\xEF\xBB\xBF# settings of the suite\n\nno sign here\n= nameless\nbad \xFF\xFE = bytes\nescape = \\q\n"
      "tail = \\u12\nGood = yes\nGOOD = later";
  SettingsText text(damaged);
  EXPECT_EQ(text.find(L"good"), L"later");
  EXPECT_EQ(text.find(L"escape"), std::nullopt);
  EXPECT_EQ(text.bytes(), damaged);
  ASSERT_TRUE(text.set(L"Added", L"1"));
  EXPECT_EQ(text.bytes(), damaged + "\nAdded = 1\n");
  ASSERT_TRUE(text.set(L"escape", L"q"));
  EXPECT_EQ(SettingsText(text.bytes()).find(L"escape"), L"q");
}

TEST(SettingsText, AFileThatBeginsWithAMark) {
  SettingsText text("\xEF\xBB\xBFKivBlock = 2\n");
  EXPECT_EQ(text.find(L"KivBlock"), L"2");
}

}  // namespace
}  // namespace kiv
