// Real drawings, where this machine has them, each as DWG and as DXF by the program that made it: the same
// rules make the same of both, and say the same about it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "base/paths.h"
#include "embedded/drawing/drawing_diff.h"
#include "embedded/formats/drawing_files.h"
#include "tests/support/program.h"
#include "tests/support/temp_path.h"

namespace cad {
namespace {

namespace fs = std::filesystem;

struct Pair {
  fs::path dwg, dxf;
};

std::vector<Pair> pairs() {
  std::vector<Pair> found;
  const fs::path folder = fs::path(KIV_SAMPLES).parent_path();
  if (std::string_view(KIV_SAMPLES).empty() || !fs::is_directory(folder / "dwg")) return found;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder / "dwg")) {
    const std::string name = entry.path().stem().string();
    for (const char* form : {".dxf", "_binary.dxf"})
      if (const fs::path other = folder / "dxf" / (name + form); fs::exists(other))
        found.push_back({entry.path(), other});
  }
  return found;
}

std::vector<fs::path> ruleFiles() {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(KIV_CASES))
    if (entry.is_directory()) files.push_back(entry.path() / "rules.cvt");
  for (const fs::directory_entry& entry : fs::directory_iterator(KIV_EXAMPLES))
    if (entry.path().extension() == ".cvt") files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

class SameRules : public testing::TestWithParam<fs::path> {
 protected:
  void SetUp() override {
    work_ = test_support::tempPath("kiv-same-rules");
    fs::remove_all(work_);
    ASSERT_TRUE(fs::create_directory(work_));
  }
  void TearDown() override {
    if (!work_.empty()) test_support::removeFolder(work_);
  }

  // What the program says, without the drawing's name.
  std::string convert(const fs::path& drawing) const {
    std::vector<std::string> words = {"convert", "--spec", base::toUtf8(GetParam().wstring()), "--out", "."};
    std::ifstream options(GetParam().parent_path() / "options");
    for (std::string word; options >> word;) words.push_back(word);
    const std::string name = base::toUtf8(drawing.wstring());
    words.push_back(name);
    const test_support::ProgramRun run = test_support::runProgram(KIVCVT_PROGRAM, words, work_);
    std::string said = std::to_string(run.status) + '\n' + run.err;
    for (std::size_t at = 0; (at = said.find(name, at)) != said.npos;) said.erase(at, name.size());
    return said;
  }
  std::unique_ptr<Drawing> converted(const fs::path& drawing, const char* extension) const {
    auto opened = formats::open(work_ / (drawing.stem().string() + extension));
    EXPECT_TRUE(opened.ok()) << base::toUtf8(opened.failure().text());
    return opened.ok() ? std::move(opened.value()) : nullptr;
  }

  fs::path work_;
};

std::string told(const RecordDifference& difference) {
  std::string text = difference.type + " " + base::toUtf8(difference.handle + L" " + difference.name);
  for (const ValueChange& change : difference.changes)
    text += "; " + change.name + ": " + base::toUtf8(change.before + L" -> " + change.after);
  return text;
}

// The program that saved both forms added an application in between. Of the variables old DXF files have only
// a switch for what XCLIPFRAME says.
bool isOfTheSources(const RecordDifference& difference) {
  return difference.fate == RecordFate::kRemoved && difference.type == "APPID";
}

TEST_P(SameRules, MakeTheSameOfBothForms) {
  const std::vector<Pair> drawings = pairs();
  if (drawings.empty()) GTEST_SKIP() << "no drawings in both forms";
  for (const Pair& pair : drawings) {
    SCOPED_TRACE(pair.dwg.string());
    EXPECT_EQ(convert(pair.dwg), convert(pair.dxf));
    const auto one = converted(pair.dwg, ".DWG"), other = converted(pair.dxf, ".DXF");
    if (!one || !other) continue;
    const DrawingDifferences differences = compareDrawings(*one, *other);
    EXPECT_FALSE(differences.pairedByOrder);
    for (const auto* list : {&differences.entities, &differences.records})
      for (const RecordDifference& difference : *list)
        EXPECT_TRUE(isOfTheSources(difference)) << told(difference);
    for (const ValueChange& change : differences.variables)
      EXPECT_EQ(change.name, "XCLIPFRAME") << base::toUtf8(change.before + L" -> " + change.after);
  }
}

std::string testName(const testing::TestParamInfo<fs::path>& info) {
  const bool isCase = info.param.stem() == "rules";
  std::string name =
      isCase ? info.param.parent_path().filename().string() : "example_" + info.param.stem().string();
  std::ranges::replace(name, '-', '_');
  return name;
}

INSTANTIATE_TEST_SUITE_P(Rules, SameRules, testing::ValuesIn(ruleFiles()), testName);

}  // namespace
}  // namespace cad
