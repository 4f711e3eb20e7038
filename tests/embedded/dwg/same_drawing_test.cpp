// Real drawings, where this machine has them: each saved as DWG and as DXF by the program that made it.

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "base/paths.h"
#include "embedded/drawing/drawing_diff.h"
#include "embedded/formats/drawing_files.h"
#include "embedded/graphics/pictures/picture.h"
#include "tests/support/temp_path.h"

namespace cad::dwg {
namespace {

namespace fs = std::filesystem;

fs::path sample(const std::string& name) { return fs::path(KIV_SAMPLES).parent_path() / name; }

std::unique_ptr<Drawing> opened(const fs::path& file) {
  auto drawing = formats::open(file);
  EXPECT_TRUE(drawing.ok()) << base::toUtf8(drawing.failure().text());
  return drawing.ok() ? std::move(drawing.value()) : nullptr;
}

std::string told(const RecordDifference& difference) {
  std::string text = difference.type + " " + base::toUtf8(difference.handle);
  for (const ValueChange& change : difference.changes)
    text += "; " + change.name + ": " + base::toUtf8(change.before + L" -> " + change.after);
  return text;
}

// The program that saved both added an application in between.
bool isExpected(const RecordDifference& difference) {
  return difference.fate == RecordFate::kRemoved && difference.type == "APPID";
}

class SameDrawing : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string code = GetParam();
    dwg_ = sample("dwg/sample_" + code + ".dwg");
    dxf_ = sample("dxf/sample_" + code + ".dxf");
    if (!fs::exists(dxf_)) dxf_ = sample("dxf/sample_" + code + "_binary.dxf");
    if (!fs::exists(dwg_) || !fs::exists(dxf_)) GTEST_SKIP();
  }

  fs::path dwg_, dxf_;
};

TEST_P(SameDrawing, IsToldAlikeByBothOfItsFiles) {
  const auto one = opened(dwg_), other = opened(dxf_);
  ASSERT_TRUE(one && other);
  const DrawingDifferences differences = compareDrawings(*one, *other);
  EXPECT_FALSE(differences.pairedByOrder);
  for (const auto* list : {&differences.entities, &differences.records})
    for (const RecordDifference& difference : *list) EXPECT_TRUE(isExpected(difference)) << told(difference);
}

TEST_P(SameDrawing, LooksAlikeInEveryLayout) {
  const auto one = opened(dwg_), other = opened(dxf_);
  ASSERT_TRUE(one && other);
  std::vector<std::wstring> names = {L"Model"};
  for (const Layout& layout : one->layouts()) names.push_back(layout.name);
  EXPECT_GT(names.size(), 2U);
  for (const std::wstring& name : names) {
    PictureOptions options;
    options.layout = name;
    const auto picture = drawPicture(*one, options), expected = drawPicture(*other, options);
    ASSERT_EQ(picture.ok(), expected.ok()) << base::toUtf8(name);
    if (!picture.ok()) continue;
    EXPECT_TRUE(svgText(picture.value()) == svgText(expected.value())) << base::toUtf8(name);
    EXPECT_EQ(picture.value().remarks, expected.value().remarks);
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, SameDrawing,
                         testing::Values("AC1015", "AC1018", "AC1024", "AC1027", "AC1032"));

TEST(DwgDrawings, AreSavedByteForByteWhenNothingChanges) {
  const fs::path folder = sample("dwg");
  if (!fs::exists(folder)) GTEST_SKIP();
  const fs::path target = test_support::tempPath("dwg_unchanged");
  for (const auto& entry : fs::directory_iterator(folder)) {
    auto drawing = formats::open(entry.path());
    ASSERT_TRUE(drawing.ok()) << base::toUtf8(drawing.failure().text());
    ASSERT_TRUE(drawing.value()->save(target).ok());
    EXPECT_EQ(base::readFile(target).value(), base::readFile(entry.path()).value()) << entry.path();
  }
  fs::remove(target);
}

}  // namespace
}  // namespace cad::dwg
