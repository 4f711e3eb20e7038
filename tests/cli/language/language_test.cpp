#include "cli/language/language.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "tests/cli/program_runner.h"

namespace kivcli {
namespace {

class InJapanese : public ::testing::Test {
 protected:
  InJapanese() : before_(usersLanguage()) { setLanguage(Language::kJapanese); }
  ~InJapanese() override { setLanguage(before_); }

 private:
  Language before_;
};

std::set<wchar_t> placeholdersOf(std::wstring_view text) {
  std::set<wchar_t> found;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    if (text[i] == L'%' && text[i + 1] >= L'1' && text[i + 1] <= L'9') found.insert(text[i + 1]);
  }
  return found;
}

TEST_F(InJapanese, FillsValuesInTheOrderOfTheLanguage) {
  EXPECT_EQ(tr(L"%1 of %2 drawings converted", {L"3", L"5"}), L"5 枚中 3 枚の図面を変換しました");
  EXPECT_EQ(tr(L"no row has 100%% of %1", {L"this"}), L"no row has 100% of this");
  setLanguage(Language::kEnglish);
  EXPECT_EQ(tr(L"%1 of %2 drawings converted", {L"3", L"5"}), L"3 of 5 drawings converted");
}

TEST_F(InJapanese, TakesAMessageApartByARowWithPlaceholders) {
  const Translation& row = japaneseOfReasons().front();
  ASSERT_FALSE(placeholdersOf(row.english).empty());
  std::wstring message = row.english;
  message.replace(message.find(L"%1"), 2, L"12");
  EXPECT_NE(translated(message).find(L"12"), std::wstring::npos);
  EXPECT_NE(translated(message), message);
  EXPECT_EQ(translated(L"nobody has written this"), L"nobody has written this");
  EXPECT_EQ(translated(L"ZIG: Loaded without its shape: The shape file is not found"),
            L"ZIG: シェイプを除いてロードしました: シェイプファイルが見つかりません");
}

TEST(Catalogue, HasEveryEnglishTextOnceAndTheSamePlaceholdersOnBothSides) {
  std::set<std::wstring> seen;
  for (const auto& area : {japaneseOfProgram(), japaneseOfOptions(), japaneseOfConvert(), japaneseOfInspect(),
                           japaneseOfSpecifications(), japaneseOfReasons()}) {
    for (const Translation& row : area) {
      EXPECT_TRUE(seen.insert(row.english).second) << ::testing::PrintToString(row.english);
      EXPECT_EQ(placeholdersOf(row.english), placeholdersOf(row.japanese))
          << ::testing::PrintToString(row.english);
    }
  }
}

class UsersLanguage : public kivcli::testing::ProgramTest {
 protected:
  // The language of a complaint, when the variables have these values ("" as good as none).
  std::string languageWith(const char* list, const char* all, const char* messages, const char* lang) {
    const std::pair<const char*, const char*> variables[] = {
        {"LANGUAGE", list}, {"LC_ALL", all}, {"LC_MESSAGES", messages}, {"LANG", lang}};
    for (const auto& [name, value] : variables) test_support::setEnvironment(name, value);
    const std::string said = kivcvt({"check", "missing.cvt"}).err;
    for (const auto& variable : variables) test_support::setEnvironment(variable.first, "");
    return said == "missing.cvt: the file does not exist\n" ? "en"
           : said == "missing.cvt: ファイルがありません\n"  ? "ja"
                                                            : said;
  }
};

TEST_F(UsersLanguage, IsTheOneThatTheEnvironmentNames) {
  EXPECT_EQ(languageWith("", "", "", "ja_JP.UTF-8"), "ja");
  EXPECT_EQ(languageWith("", "", "ja", "en_US.UTF-8"), "ja");
  EXPECT_EQ(languageWith("", "C", "ja_JP", "ja_JP"), "en");
  EXPECT_EQ(languageWith("", "", "", "jam_JM.UTF-8"), "en");
  EXPECT_EQ(languageWith("fr:ja:en", "", "", "en_US.UTF-8"), "ja");
  EXPECT_EQ(languageWith("en", "", "", "ja_JP.UTF-8"), "en");
  EXPECT_EQ(languageWith("ja", "", "", "C.UTF-8"), "en");
}

}  // namespace
}  // namespace kivcli
