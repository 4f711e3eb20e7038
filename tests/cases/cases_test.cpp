// Every folder beside this file is a conversion case that a person can read: drawing.dxf, rules.cvt and
// expected.dxf, compared byte for byte. Optional: `options` (words of the command line), `problems` (what
// the program says on standard error; the exit status is then 1), `warnings` (the same, but with status 0),
// `log` (the conversion log, with TIME for the time and the drawing's name without its folder), and text
// search lists. See promote.sh.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/program.h"
#include "tests/support/temp_path.h"

namespace {

namespace fs = std::filesystem;

std::string content(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> caseNames() {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(KIV_CASES)) {
    if (entry.is_directory()) names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::vector<std::string_view> lines(std::string_view text) {
  std::vector<std::string_view> result;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size() - 1);
    result.push_back(text.substr(0, end + 1));
    text.remove_prefix(end + 1);
  }
  return result;
}

// Where two drawings begin to differ; promote.sh shows in which groups.
std::string firstDifference(std::string_view expected, std::string_view actual) {
  const auto at = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end()).second;
  return "line " + std::to_string(std::count(actual.begin(), at, '\n') + 1) + ", byte " +
         std::to_string(at - actual.begin()) + " of " + std::to_string(actual.size()) + " where " +
         std::to_string(expected.size()) + " are expected";
}

// The log with TIME and the bare file name in each entry's first line.
std::string withoutPlaceAndTime(const std::string& log) {
  std::string result;
  bool header = true;
  for (const std::string_view line : lines(log)) {
    const std::size_t first = line.find(','), second = line.find(',', first + 1);
    if (!header && first != 0 && second != std::string_view::npos) {
      const std::string_view path = line.substr(first + 1, second - first - 1);
      result.append("TIME,").append(path.substr(path.find_last_of("/\\") + 1)).append(line.substr(second));
    } else {
      result += line;
    }
    header = false;
  }
  return result;
}

class Case : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    work_ = test_support::tempPath("kiv-case");
    fs::remove_all(work_);
    ASSERT_TRUE(fs::create_directory(work_));
    for (const char* file : {"drawing.dxf", "rules.cvt", "expected.dxf"}) {
      ASSERT_TRUE(fs::exists(source() / file)) << "the case has no " << file;
    }
    for (const fs::directory_entry& entry : fs::directory_iterator(source())) {
      fs::copy(entry.path(), work_ / entry.path().filename());
    }
  }
  void TearDown() override {
    if (!work_.empty()) test_support::removeFolder(work_);
  }

  fs::path source() const { return fs::path(KIV_CASES) / GetParam(); }
  bool given(const char* file) const { return fs::exists(source() / file); }

  test_support::ProgramRun convert() const {
    std::vector<std::string> words = {"convert", "--spec", "rules.cvt", "--out", "out"};
    std::istringstream options(content(source() / "options"));
    for (std::string word; options >> word;) words.push_back(word);
    if (given("log")) words.insert(words.end(), {"--log", "logs"});
    words.push_back("drawing.dxf");
    return test_support::runProgram(KIVCVT_PROGRAM, words, work_);
  }
  std::string writtenLog() const {
    for (const fs::directory_entry& entry : fs::directory_iterator(work_ / "logs")) {
      return withoutPlaceAndTime(content(entry.path()));
    }
    return "";
  }

  fs::path work_;
};

TEST_P(Case, GivesTheExpectedDrawing) {
  const test_support::ProgramRun run = convert();
  EXPECT_EQ(run.err, content(source() / (given("problems") ? "problems" : "warnings")));
  EXPECT_EQ(run.status, given("problems") ? 1 : 0);

  const std::string expected = content(source() / "expected.dxf"),
                    actual = content(work_ / "out" / "drawing.DXF");
  EXPECT_TRUE(expected == actual) << firstDifference(expected, actual);
  if (given("log")) {
    EXPECT_EQ(writtenLog(), content(source() / "log"));
  }
}

TEST(Cases, AreFound) { EXPECT_GE(caseNames().size(), 20u); }

std::string testName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = info.param;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Folder, Case, ::testing::ValuesIn(caseNames()), testName);

}  // namespace
