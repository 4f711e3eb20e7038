#include "cli/arguments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "cli/language/language.h"
#include "cli/options/calls.h"
#include "cli/text_width.h"

namespace kivcli {
namespace {

TEST(Arguments, OptionsMayStandAnywhereAndInBothForms) {
  const auto parsed =
      parseArguments({L"convert", L"a.dxf", L"--spec=rules.cvt", L"--out", L"out", L"--ignore-locks",
                      L"--block-scope", L"2", L"--format=dxf", L"b.dxf", L"--log", L"logs"});
  ASSERT_TRUE(parsed) << parsed.failure().text().c_str();
  const Arguments& arguments = parsed.value();
  EXPECT_EQ(arguments.call, findCall(L"convert"));
  EXPECT_EQ(arguments.specification, L"rules.cvt");
  EXPECT_EQ(arguments.outputFolder, L"out");
  EXPECT_EQ(arguments.format, SaveFormat::kDxf);
  EXPECT_EQ(arguments.blockScope, 2);
  EXPECT_TRUE(arguments.ignoreLocks);
  EXPECT_EQ(arguments.logFolder, L"logs");
  EXPECT_EQ(arguments.files, (std::vector<std::wstring>{L"a.dxf", L"b.dxf"}));
}

TEST(Arguments, WhatIsNoOptionIsAFileWhateverItsName) {
  const std::wstring anyBytes{L'a', static_cast<wchar_t>(0xDC95), L'.', L'd'};
  const std::vector<std::wstring> names = {L"-", L"[a,b]", L"/x", L"info", L"++", L"a=b", L"%%", anyBytes};
  std::vector<std::wstring> words = {L"info"};
  words.insert(words.end(), names.begin(), names.end());
  const auto parsed = parseArguments(words);
  ASSERT_TRUE(parsed) << parsed.failure().text().c_str();
  EXPECT_EQ(parsed.value().files, names);

  const auto after = parseArguments({L"info", L"a", L"--", L"--out", L"-h", L"--x="});
  ASSERT_TRUE(after);
  EXPECT_EQ(after.value().files, (std::vector<std::wstring>{L"a", L"--out", L"-h", L"--x="}));
}

TEST(Arguments, HelpIsOnTheCallThatItIsAskedOf) {
  for (const auto& words : {std::vector<std::wstring>{L"convert", L"--spec", L"a", L"--help"},
                            {L"convert", L"-h"},
                            {L"help", L"convert"},
                            {L"--help", L"convert"}}) {
    const auto parsed = parseArguments(words);
    ASSERT_TRUE(parsed) << words[1].c_str();
    EXPECT_EQ(parsed.value().call, findCall(L"help"));
    EXPECT_EQ(parsed.value().files, std::vector<std::wstring>{L"convert"});
  }
}

// What the tables hold is shown, in lines that a terminal has room for, whatever the language.
TEST(Arguments, HelpHasEveryCallOptionAndExampleInBothLanguages) {
  for (const Language language : {Language::kEnglish, Language::kJapanese}) {
    setLanguage(language);
    for (const CallRow* call : calls()) {
      EXPECT_NE(programHelp().find(std::wstring(L"  kivcvt ") + call->name), std::wstring::npos);
      const std::wstring help = callHelp(*call);
      for (const OptionRow& option : call->options) {
        EXPECT_NE(help.find(std::wstring(L"\n  ") + option.name + L" "), std::wstring::npos) << option.name;
        EXPECT_EQ(tr(option.help) == option.help, language == Language::kEnglish) << option.name;
      }
      std::wistringstream lines(help + L"\n" + programHelp());
      for (std::wstring line; std::getline(lines, line);) EXPECT_LE(columnsOf(line), 100u) << line;
    }
  }
  setLanguage(Language::kEnglish);
}

TEST(Arguments, ARefusalNamesWhatIsWrong) {
  const struct {
    std::vector<std::wstring> words;
    const wchar_t* says;
  } cases[] = {
      {{}, L"convert, info, picture"},
      {{L"transmogrify"}, L"transmogrify"},
      {{L"convert", L"--out", L"o", L"a.dxf"}, L"--spec FILE.cvt"},
      {{L"convert", L"--spec", L"r.cvt", L"a.dxf"}, L"--out DIR"},
      {{L"convert", L"--spec", L"r.cvt", L"--out", L"o"}, L"name the drawings"},
      {{L"convert", L"a.dxf", L"--spec"}, L"--spec: this option needs a value"},
      {{L"convert", L"--spec", L"", L"--out", L"o", L"a.dxf"}, L"--spec: this option needs a value"},
      {{L"convert", L"--speck", L"r.cvt", L"a.dxf"}, L"--speck: there is no such option"},
      {{L"convert", L"--format", L"pdf", L"a.dxf"}, L"--format pdf: the format is"},
      {{L"convert", L"--block-scope", L"3", L"a.dxf"}, L"--block-scope 3: the scope is"},
      {{L"convert", L"--block-scope", L"12", L"a.dxf"}, L"--block-scope 12: the scope is"},
      {{L"convert", L"--ignore-locks=no", L"a.dxf"}, L"takes no value"},
      {{L"check", L"--spec", L"r.cvt"}, L"--spec: there is no such option"},
      {{L"check"}, L"name the CVT files"},
      {{L"convert", L"--spec=r", L"--out=", L"o", L"a.dxf"}, L"--out: this option needs a value"},
      {{L"convert", L"--spec", L"r.cvt", L"--dry-run", L"--log", L"l", L"a.dxf"},
       L"--log: nothing is written"},
      {{L"help", L"transmogrify"}, L"transmogrify: there is no such call"},
      {{L"info", L"-x", L"a.dxf"}, L"-x: there is no such option here; `kivcvt help info`"},
      {{L"check", L""}, L"the name of a file is empty"},
      {{L"convert", L"--spec", L"r.cvt", L"--spec=s.cvt", L"--out", L"o", L"a.dxf"},
       L"--spec: this option is given"},
      {{L"convert", L"--ignore-locks", L"--ignore-locks", L"a.dxf"},
       L"--ignore-locks: this option is given twice"},
  };
  for (const auto& [words, says] : cases) {
    const auto parsed = parseArguments(words);
    ASSERT_FALSE(parsed) << says;
    EXPECT_NE(parsed.failure().text().find(says), std::wstring::npos) << says;
  }
}

TEST(Arguments, AnOptionOfAnotherCallIsRefused) {
  std::map<std::wstring, bool> all;  // and whether they take a value
  for (const CallRow* call : calls())
    for (const OptionRow& option : call->options) all[option.name] = option.value[0] != L'\0';
  for (const CallRow* call : calls()) {
    for (const auto& [name, hasValue] : all) {
      if (std::ranges::find(call->options, name, &OptionRow::name) != call->options.end()) continue;
      std::vector<std::wstring> words = {call->name, name, L"1", L"a.dxf"};
      if (!hasValue) words.erase(words.begin() + 2);
      const auto parsed = parseArguments(words);
      ASSERT_FALSE(parsed) << std::string(name.begin(), name.end());
      EXPECT_TRUE(parsed.failure().text().starts_with(name + L": there is no such option"));
    }
  }
}

}  // namespace
}  // namespace kivcli
