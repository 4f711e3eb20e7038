#include "cli/arguments.h"

#include <gtest/gtest.h>

namespace kivcli {
namespace {

TEST(Arguments, OptionsMayStandAnywhereAndInBothForms) {
  const auto parsed =
      parseArguments({L"convert", L"a.dxf", L"--spec=rules.cvt", L"--out", L"out", L"--ignore-locks",
                      L"--block-scope", L"2", L"--format=dxf", L"b.dxf", L"--log", L"logs"});
  ASSERT_TRUE(parsed) << parsed.failure().text().c_str();
  const Arguments& arguments = parsed.value();
  EXPECT_EQ(arguments.call, Call::kConvert);
  EXPECT_EQ(arguments.specification, L"rules.cvt");
  EXPECT_EQ(arguments.outputFolder, L"out");
  EXPECT_EQ(arguments.format, SaveFormat::kDxf);
  EXPECT_EQ(arguments.blockScope, 2);
  EXPECT_TRUE(arguments.ignoreLocks);
  EXPECT_EQ(arguments.logFolder, L"logs");
  EXPECT_EQ(arguments.files, (std::vector<std::wstring>{L"a.dxf", L"b.dxf"}));
}

TEST(Arguments, AfterTwoHyphensEverythingIsAFile) {
  const auto parsed = parseArguments({L"info", L"--", L"--out"});
  ASSERT_TRUE(parsed);
  EXPECT_EQ(parsed.value().files, std::vector<std::wstring>{L"--out"});
}

TEST(Arguments, ARefusalNamesWhatIsWrong) {
  const struct {
    std::vector<std::wstring> words;
    const wchar_t* says;
  } cases[] = {
      {{}, L"convert, check, info"},
      {{L"transmogrify"}, L"transmogrify"},
      {{L"convert", L"--out", L"o", L"a.dxf"}, L"--spec FILE.cvt"},
      {{L"convert", L"--spec", L"r.cvt", L"a.dxf"}, L"--out DIR"},
      {{L"convert", L"--spec", L"r.cvt", L"--out", L"o"}, L"name the drawings"},
      {{L"convert", L"a.dxf", L"--spec"}, L"--spec: this option needs a value"},
      {{L"convert", L"--spec=", L"--out", L"o", L"a.dxf"}, L"--spec: this option needs a value"},
      {{L"convert", L"--speck", L"r.cvt", L"a.dxf"}, L"--speck: there is no such option"},
      {{L"convert", L"--format", L"pdf", L"a.dxf"}, L"--format pdf: the format is"},
      {{L"convert", L"--block-scope", L"3", L"a.dxf"}, L"--block-scope 3: the scope is"},
      {{L"convert", L"--block-scope", L"12", L"a.dxf"}, L"--block-scope 12: the scope is"},
      {{L"convert", L"--ignore-locks=no", L"a.dxf"}, L"takes no value"},
      {{L"check", L"--spec", L"r.cvt"}, L"--spec: there is no such option"},
      {{L"check"}, L"name the CVT files"},
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

}  // namespace
}  // namespace kivcli
