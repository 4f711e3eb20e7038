// Blocks from one DWG drawing in another.

#include <gtest/gtest.h>

#include <filesystem>

#include "base/files.h"
#include "base/paths.h"
#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/record_diff.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dwg/built_drawing.h"
#include "tests/support/temp_path.h"

namespace cad::dwg {
namespace {

namespace fs = std::filesystem;

// By the code of a version: the sample of it, or with kBuilt before it the built drawing.
constexpr std::string_view kBuilt = "Built";

class BlockCopies : public testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    target_ = test_support::tempPath("dwg_block_copies.dwg");
    if (isBuilt()) {
      file_ = test_support::tempPath("dwg_block_source.dwg");
      const auto version = base::versionByCode(GetParam().substr(kBuilt.size()));
      ASSERT_TRUE(base::writeFileAtomically(file_, builtDrawing(version)).ok());
    } else {
      file_ = fs::path(KIV_SAMPLES).parent_path() / "dwg" / ("sample_" + GetParam() + ".dwg");
    }
    if (!fs::exists(file_)) GTEST_SKIP();
  }
  void TearDown() override {
    fs::remove(target_);
    if (isBuilt()) fs::remove(file_);
  }
  static bool isBuilt() { return GetParam().starts_with(kBuilt); }

  static std::unique_ptr<Drawing> open(const fs::path& file) {
    auto drawing = formats::open(file);
    EXPECT_TRUE(drawing.ok()) << base::toUtf8(drawing.failure().text());
    return std::move(drawing.value());
  }
  // Takes away from model space what is not copied.
  static std::size_t keepCopied(Drawing& drawing) {
    std::size_t kept = 0;
    for (const RecordId id : drawing.entitiesOf(drawing.modelSpace())) {
      const std::string_view type = drawing.typeName(id);
      constexpr std::string_view kCopied[] = {"3DFACE",     "ARC",   "ATTDEF", "CIRCLE",   "DIMENSION",
                                              "ELLIPSE",    "HATCH", "INSERT", "LEADER",   "LINE",
                                              "LWPOLYLINE", "MTEXT", "POINT",  "SOLID",    "SPLINE",
                                              "POLYLINE",   "TEXT",  "TRACE",  "TOLERANCE"};
      const NameId block = drawing.name(id, Property::kBlockName);
      bool isCopied = std::ranges::find(kCopied, type) != std::end(kCopied);
      if (block != kNoName) {
        // A block may hold what is not copied.
        for (const RecordId inner : drawing.entitiesOf(drawing.find(Table::kBlock, block)))
          isCopied = isCopied && std::ranges::find(kCopied, drawing.typeName(inner)) != std::end(kCopied);
      }
      if (isCopied) {
        ++kept;
      } else {
        EXPECT_TRUE(drawing.setErased(id, true).ok());
      }
    }
    return kept;
  }

  fs::path file_, target_;
};

TEST_P(BlockCopies, HoldTheSameInAnotherDrawing) {
  const auto source = open(file_);
  const std::size_t count = keepCopied(*source);
  EXPECT_GT(count, isBuilt() ? 5U : 50U);
  // The drawing with other names for what the entities refer to, so that all of it is made anew.
  const auto drawing = open(file_);
  for (const wchar_t* layer : {L"Layer1", L"Layer_Off"})
    ASSERT_TRUE(drawing
                    ->renameLayer(drawing->find(Table::kLayer, std::wstring_view(layer)),
                                  std::wstring(L"Old ") + layer)
                    .ok());
  const auto made = drawing->defineBlock(L"COPY OF ALL", *source);
  ASSERT_TRUE(made.ok()) << base::toUtf8(made.failure().text());
  ASSERT_TRUE(drawing->addInsert(drawing->modelSpace(), {.block = made.value(), .at = {}}).ok());
  ASSERT_TRUE(drawing->save(target_).ok());

  const auto saved = open(target_);
  const RecordId block = saved->find(Table::kBlock, std::wstring_view(L"COPY OF ALL"));
  ASSERT_NE(block, kNoRecord);
  std::vector<RecordId> originals;
  for (const RecordId id : source->entitiesOf(source->modelSpace()))
    if (!source->record(id).erased()) originals.push_back(id);
  const std::vector<RecordId> copies = saved->entitiesOf(block);
  ASSERT_EQ(copies.size(), originals.size());
  const RecordComparison comparison(*source, *saved, false);
  for (std::size_t i = 0; i < copies.size(); ++i) {
    const auto same = [&](RecordId one, RecordId other) {
      EXPECT_EQ(source->typeName(one), saved->typeName(other));
      for (const ValueChange& change : comparison.changes(one, other)) {
        // Anonymous blocks have other numbers; a hatch no longer follows its boundary.
        if (change.property == Property::kDimBlock || change.property == Property::kBlockName) continue;
        if (change.name == "other data") continue;
        ADD_FAILURE() << source->typeName(one) << ' ' << std::hex << *source->handle(one) << ": "
                      << change.name << ": " << base::toUtf8(change.before + L" -> " + change.after);
      }
    };
    same(originals[i], copies[i]);
    const auto parts = source->subRecordsOf(originals[i]), others = saved->subRecordsOf(copies[i]);
    ASSERT_EQ(parts.size(), others.size());
    for (std::size_t k = 0; k < parts.size(); ++k) same(parts[k], others[k]);
  }
  while (drawing->undo()) {
  }
  ASSERT_TRUE(drawing->save(target_).ok());
  EXPECT_EQ(base::readFile(target_).value(), base::readFile(file_).value());
}

INSTANTIATE_TEST_SUITE_P(Versions, BlockCopies,
                         testing::Values("AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032",
                                         "BuiltAC1012", "BuiltAC1014", "BuiltAC1015", "BuiltAC1018",
                                         "BuiltAC1021", "BuiltAC1024", "BuiltAC1027", "BuiltAC1032"));

}  // namespace
}  // namespace cad::dwg
