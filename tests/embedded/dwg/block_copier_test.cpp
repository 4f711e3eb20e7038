// Blocks from one DWG drawing in another.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/files.h"
#include "base/paths.h"
#include "embedded/drawing/record_diff.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dwg/built_drawing.h"
#include "tests/support/temp_path.h"

namespace cad::dwg {
namespace {

namespace fs = std::filesystem;

// By the code of a version: the sample of it, or with kBuilt before it the built drawing.
constexpr std::string_view kBuilt = "Built";
constexpr const char* kDrawings[] = {"AC1014",      "AC1015",      "AC1018",      "AC1021",
                                     "AC1024",      "AC1027",      "AC1032",      "BuiltAC1012",
                                     "BuiltAC1014", "BuiltAC1015", "BuiltAC1018", "BuiltAC1021",
                                     "BuiltAC1024", "BuiltAC1027", "BuiltAC1032"};

bool isBuilt(std::string_view name) { return name.starts_with(kBuilt); }
Version versionOf(std::string_view name) {
  return base::versionByCode(std::string(isBuilt(name) ? name.substr(kBuilt.size()) : name));
}

std::unique_ptr<Drawing> openFile(const fs::path& file) {
  auto drawing = formats::open(file);
  EXPECT_TRUE(drawing.ok()) << base::toUtf8(drawing.failure().text());
  return std::move(drawing.value());
}

// Null: this machine does not have it.
std::unique_ptr<Drawing> drawingOf(const std::string& name) {
  if (!isBuilt(name)) {
    const fs::path file = fs::path(KIV_SAMPLES).parent_path() / "dwg" / ("sample_" + name + ".dwg");
    return fs::exists(file) ? openFile(file) : nullptr;
  }
  const fs::path file = test_support::tempPath("dwg_block_copies_built.dwg");
  EXPECT_TRUE(base::writeFileAtomically(file, builtDrawing(versionOf(name))).ok());
  auto drawing = openFile(file);
  fs::remove(file);
  return drawing;
}

bool isCopied(const Drawing& drawing, RecordId id, Version target) {
  constexpr std::string_view kCopied[] = {"3DFACE",     "ARC",   "ATTDEF", "CIRCLE",   "DIMENSION",
                                          "ELLIPSE",    "HATCH", "INSERT", "LEADER",   "LINE",
                                          "LWPOLYLINE", "MTEXT", "POINT",  "SOLID",    "SPLINE",
                                          "POLYLINE",   "TEXT",  "TRACE",  "TOLERANCE"};
  if (std::ranges::find(kCopied, drawing.typeName(id)) == std::end(kCopied)) return false;
  const auto& storage = dynamic_cast<const DwgStorage&>(drawing.storage());
  const bool ofLines = storage.fields(drawing.record(id)).integer("attribute type", 1) > 1;
  if (ofLines && target < Version::kR2018) return false;
  const NameId block = drawing.name(id, Property::kBlockName);
  return block == kNoName ||
         std::ranges::all_of(drawing.entitiesOf(drawing.find(Table::kBlock, block)),
                             [&](RecordId inner) { return isCopied(drawing, inner, target); });
}

// Takes away from model space what is not copied.
std::size_t keepCopied(Drawing& drawing, Version target) {
  std::size_t kept = 0;
  for (const RecordId id : drawing.entitiesOf(drawing.modelSpace())) {
    if (isCopied(drawing, id, target)) {
      ++kept;
    } else {
      EXPECT_TRUE(drawing.setErased(id, true).ok());
    }
  }
  return kept;
}

class BlockCopies : public testing::TestWithParam<const char*> {
 protected:
  void TearDown() override { fs::remove(file_); }

  void copyInto(Drawing& target, Drawing& source) {
    const Version version = target.facts().version;
    ASSERT_GT(keepCopied(source, version), 5U);
    // Other names for what the entities refer to, so that it is made anew.
    for (const wchar_t* layer : {L"Layer1", L"Layer_Off"}) {
      const RecordId id = target.find(Table::kLayer, std::wstring_view(layer));
      ASSERT_TRUE(target.renameLayer(id, std::wstring(L"Old ") + layer).ok());
    }
    const auto made = target.defineBlock(L"COPY OF ALL", source);
    ASSERT_TRUE(made.ok()) << base::toUtf8(made.failure().text());
    ASSERT_TRUE(target.addInsert(target.modelSpace(), {.block = made.value(), .at = {}}).ok());
    ASSERT_TRUE(target.save(file_).ok());
    compare(source, *openFile(file_));
  }

  static void compare(const Drawing& source, const Drawing& saved) {
    const RecordId block = saved.find(Table::kBlock, std::wstring_view(L"COPY OF ALL"));
    ASSERT_NE(block, kNoRecord);
    std::vector<RecordId> originals;
    for (const RecordId id : source.entitiesOf(source.modelSpace()))
      if (!source.record(id).erased()) originals.push_back(id);
    const std::vector<RecordId> copies = saved.entitiesOf(block);
    ASSERT_EQ(copies.size(), originals.size());
    for (std::size_t i = 0; i < copies.size(); ++i) {
      compare(source, originals[i], saved, copies[i]);
      const auto parts = source.subRecordsOf(originals[i]), others = saved.subRecordsOf(copies[i]);
      ASSERT_EQ(parts.size(), others.size());
      for (std::size_t k = 0; k < parts.size(); ++k) compare(source, parts[k], saved, others[k]);
    }
  }

  static void compare(const Drawing& source, RecordId one, const Drawing& saved, RecordId other) {
    EXPECT_EQ(source.typeName(one), saved.typeName(other));
    for (const ValueChange& change : RecordComparison(source, saved, false).changes(one, other)) {
      // Anonymous blocks have other numbers; a hatch no longer follows its boundary.
      const bool isName = change.property == Property::kDimBlock || change.property == Property::kBlockName;
      const bool isTooNew = (change.name == "true colour" || change.property == Property::kTransparency) &&
                            saved.facts().version < Version::kR2004;
      if (isName || isTooNew || change.name == "other data") continue;
      ADD_FAILURE() << source.typeName(one) << ' ' << std::hex << *source.handle(one) << ": " << change.name
                    << ": " << base::toUtf8(change.before + L" -> " + change.after);
    }
  }

  fs::path file_ = test_support::tempPath("dwg_block_copies.dwg");
};

TEST_P(BlockCopies, HoldTheSameInADrawingOfTheirVersion) {
  const auto source = drawingOf(GetParam()), target = drawingOf(GetParam());
  if (!source) GTEST_SKIP();
  ASSERT_TRUE(target->save(file_).ok());
  const auto before = base::readFile(file_);
  copyInto(*target, *source);
  while (target->undo()) {
  }
  ASSERT_TRUE(target->save(file_).ok());
  EXPECT_EQ(base::readFile(file_).value(), before.value());
}

TEST_P(BlockCopies, HoldTheSameInDrawingsOfOtherVersions) {
  if (versionOf(GetParam()) < Version::kR2000) return;
  for (const std::string other : kDrawings) {
    if (versionOf(other) < Version::kR2000 || versionOf(other) == versionOf(GetParam())) continue;
    if (isBuilt(other) != isBuilt(GetParam())) continue;
    const auto source = drawingOf(other), target = drawingOf(GetParam());
    if (!source || !target) continue;
    SCOPED_TRACE("from " + other);
    copyInto(*target, *source);
  }
}

INSTANTIATE_TEST_SUITE_P(Drawings, BlockCopies, testing::ValuesIn(kDrawings),
                         [](const auto& tested) { return std::string(tested.param); });

}  // namespace
}  // namespace cad::dwg
