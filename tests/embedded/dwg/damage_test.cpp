// Drawings of every container that something is wrong with: refused with the place and the reason, or read
// with what is wrong kept as it came, and told.

#include <gtest/gtest.h>

#include <algorithm>

#include "base/codepage.h"
#include "base/files.h"
#include "embedded/formats/drawing_files.h"
#include "tests/embedded/dwg/whole_drawing.h"
#include "tests/support/temp_path.h"

namespace cad::dwg {
namespace {

using P = Property;

std::string told(const base::Failure& failure) { return base::toUtf8(failure.text()); }

class DamagedDwg : public testing::TestWithParam<Version> {
 protected:
  std::unique_ptr<Drawing> opened() {
    auto drawing = formats::openBytes(bytesOf(small));
    if (!drawing.ok()) ADD_FAILURE() << told(drawing.failure());
    return drawing.ok() ? std::move(drawing.value()) : nullptr;
  }
  static SmallObject& object(SmallDrawing& small, Handle handle) {
    return *std::ranges::find(small.objects, handle, &SmallObject::handle);
  }
  std::string saved(Drawing& drawing) {
    const auto target = test_support::tempPath("dwg_damage.dwg");
    const base::Status status = drawing.save(target);
    if (!status.ok()) return {};
    const std::string bytes = base::readFile(target).value();
    std::filesystem::remove(target);
    return bytes;
  }
  // What users do with a drawing: all that is asked of it, a change, and saving.
  void use(Drawing& drawing) {
    for (RecordId id = 0; id < drawing.recordCount(); ++id) {
      (void)drawing.text(id, P::kLayer), (void)drawing.text(id, P::kTextString);
      (void)drawing.geometry(id), (void)drawing.looks(id);
      if (drawing.record(id).kind != RecordKind::kEntity) continue;
      (void)drawing.setInteger(id, P::kColorIndex, 3), (void)drawing.setText(id, P::kLayer, L"0");
    }
    (void)drawing.addTableRecord(Table::kLayer, L"NEW");
    (void)drawing.headerVariable("LTSCALE");
    const std::string bytes = saved(drawing);
    if (bytes.empty()) return;
    const auto again = formats::openBytes(bytes);
    EXPECT_TRUE(again.ok()) << told(again.failure());
  }

  SmallDrawing small = wholeDrawing(GetParam());
};
INSTANTIATE_TEST_SUITE_P(Versions, DamagedDwg,
                         testing::Values(Version::kR13, Version::kR14, Version::kR2000, Version::kR2004,
                                         Version::kR2007, Version::kR2010, Version::kR2013, Version::kR2018),
                         [](const auto& test) { return std::string(base::versionCode(test.param)); });

TEST_P(DamagedDwg, AWholeOneIsReadWithoutAWarning) {
  const auto drawing = opened();
  ASSERT_TRUE(drawing);
  EXPECT_TRUE(formats::warningsAbout(*drawing).empty());
  EXPECT_EQ(drawing->entitiesOf(drawing->modelSpace()).size(), 3U);
  const RecordId text = drawing->findHandle(0x31);
  EXPECT_EQ(drawing->text(text, P::kTextString), L"one");
  EXPECT_EQ(drawing->text(text, P::kLayer), L"WALL");
  EXPECT_EQ(drawing->headerVariable("CLAYER"), Variable(std::wstring(L"0")));
  const auto block = std::get<InsertGeometry>(drawing->geometry(drawing->findHandle(0x32)).shape).block;
  EXPECT_EQ(block, drawing->find(Table::kBlock, std::wstring_view(L"MARK")));
  EXPECT_EQ(saved(*drawing), bytesOf(small));
}

TEST_P(DamagedDwg, AnObjectThatCannotBeReadStaysAndIsNamed) {
  std::string& line = object(small, 0x30).data;
  line.assign(line.size(), '\xFF');
  const auto drawing = opened();
  ASSERT_TRUE(drawing);
  const auto warnings = formats::warningsAbout(*drawing);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0],
            L"The drawing is damaged: 1 of its objects cannot be read and stays as it came (30)");
  EXPECT_EQ(drawing->entitiesOf(drawing->modelSpace()).size(), 2U);
  ASSERT_TRUE(drawing->setText(drawing->findHandle(0x31), P::kLayer, L"0").ok());
  const auto file = readBytes(saved(*drawing));
  ASSERT_TRUE(file);
  EXPECT_EQ(file.value()->objectAt(file.value()->find(0x30)->offset).value().data, line);
}

TEST_P(DamagedDwg, AWrongChecksumOfAnObjectIsToldAndLosesNothing) {
  spoilLastChecksum(small);
  const auto drawing = opened();
  ASSERT_TRUE(drawing);
  const auto warnings = formats::warningsAbout(*drawing);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_NE(warnings[0].find(L"1 of its objects has a wrong checksum"), std::wstring::npos);
  EXPECT_NE(warnings[0].find(L"(32)"), std::wstring::npos);
  EXPECT_EQ(drawing->entitiesOf(drawing->modelSpace()).size(), 3U);
  EXPECT_EQ(saved(*drawing), bytesOf(small));
}

// A right one would tell that its values are what they were.
TEST_P(DamagedDwg, AnObjectWithAWrongChecksumIsNotChangedAndStaysKnownAsDamaged) {
  spoilLastChecksum(small);
  const auto drawing = opened();
  ASSERT_TRUE(drawing);
  const RecordId damaged = drawing->findHandle(0x32);
  const base::Status set = drawing->setInteger(damaged, P::kColorIndex, 3);
  ASSERT_FALSE(set.ok());
  EXPECT_EQ(set.failure().reason, L"The object is damaged: its checksum is wrong");
  EXPECT_FALSE(drawing->setText(damaged, P::kLayer, L"WALL").ok());
  EXPECT_TRUE(drawing->setText(damaged, P::kLayer, L"0").ok()) << "what it is anyway";
  EXPECT_EQ(saved(*drawing), bytesOf(small));
  // Its neighbour goes: until R2000 each entity names the next.
  ASSERT_TRUE(drawing->setErased(drawing->findHandle(0x31), true).ok());
  const auto again = formats::openBytes(saved(*drawing));
  ASSERT_TRUE(again.ok());
  EXPECT_EQ(again.value()->facts().damage.withWrongChecksum, std::vector<Handle>{0x32});
  EXPECT_EQ(again.value()->entitiesOf(again.value()->modelSpace()).size(), 2U);
}

TEST_P(DamagedDwg, WithoutItsSecondHeaderItIsReadAndThatIsTold) {
  const std::string bytes = bytesOf(small);
  const auto toldOf = [](const std::string& file) {
    const auto drawing = formats::openBytes(file);
    EXPECT_TRUE(drawing.ok()) << (drawing.ok() ? "" : told(drawing.failure()));
    const auto warnings =
        drawing.ok() ? formats::warningsAbout(*drawing.value()) : std::vector<std::wstring>();
    return warnings.size() == 1 && warnings[0].find(L"its second header") != std::wstring::npos;
  };
  std::size_t at = bytes.size();
  if (GetParam() <= Version::kR2000) {
    SmallPlaces places;
    locatedBytes(small, places);
    at = places.secondHeader;
  } else {
    at -= GetParam() == Version::kR2007 ? 0x400 : 0x6C;
  }
  std::string wrong = bytes;
  wrong[at + 30] = static_cast<char>(~wrong[at + 30]);
  EXPECT_TRUE(toldOf(wrong));
  EXPECT_TRUE(toldOf(bytes.substr(0, bytes.size() - 1)) || GetParam() <= Version::kR2000);
  if (GetParam() > Version::kR2000) {
    EXPECT_TRUE(toldOf(bytes.substr(0, at)));
  }
}

TEST_P(DamagedDwg, WithoutItsModelSpaceItIsRefused) {
  const auto refusedWithout = [&](Handle handle) {
    SmallDrawing damaged = small;
    std::string& data = object(damaged, handle).data;
    data.assign(data.size(), '\xFF');
    const auto drawing = formats::openBytes(bytesOf(damaged));
    return drawing.ok() ? std::string("read") : told(drawing.failure());
  };
  EXPECT_EQ(refusedWithout(0x1F), "handle 1F: The drawing is damaged: its model space cannot be read");
  EXPECT_EQ(refusedWithout(1), "byte 0: The drawing is damaged: the table of its blocks cannot be read");
}

TEST_P(DamagedDwg, CutOffAnywhereItIsRefusedWithThePlace) {
  const std::string bytes = bytesOf(small);
  // The end of the file is behind all that is read of it.
  for (std::size_t length = 6; length < bytes.size() * 3 / 4; length += 1 + length / 40) {
    const auto drawing = formats::openBytes(bytes.substr(0, length));
    ASSERT_FALSE(drawing.ok()) << length;
    EXPECT_TRUE(drawing.failure().place.starts_with(L"byte ")) << told(drawing.failure());
  }
}

TEST_P(DamagedDwg, AnyWrongByteOfAnObjectIsReadAndUsedAllTheSame) {
  for (SmallObject& each : small.objects) {
    const std::string whole = each.data;
    for (std::size_t at = 0; at < whole.size(); at += 1 + whole.size() / 12) {
      each.data[at] = static_cast<char>(~whole[at]);
      const auto drawing = formats::openBytes(bytesOf(small));
      if (drawing.ok()) {
        EXPECT_EQ(saved(*drawing.value()), bytesOf(small)) << each.handle << ' ' << at;
        use(*drawing.value());
      } else {
        EXPECT_FALSE(drawing.failure().reason.empty());
      }
      each.data = whole;
    }
  }
}

TEST_P(DamagedDwg, ReferencesToNothingAreReadAndUsedAllTheSame) {
  for (std::size_t i = 0; i < small.objects.size(); ++i) {
    SmallDrawing without = small;
    without.objects.erase(without.objects.begin() + static_cast<std::ptrdiff_t>(i));
    const auto drawing = formats::openBytes(bytesOf(without));
    if (drawing.ok()) use(*drawing.value());
  }
}

}  // namespace
}  // namespace cad::dwg
