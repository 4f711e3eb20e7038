// Every object of the sample drawings by its fields.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "embedded/dwg/fields/header_fields.h"
#include "embedded/dwg/fields/object_fields.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {
namespace {

std::vector<std::filesystem::path> samples() {
  std::vector<std::filesystem::path> files;
  const std::filesystem::path folder = std::filesystem::path(KIV_SAMPLES).parent_path() / "dwg";
  if (!std::string_view(KIV_SAMPLES).empty() && std::filesystem::is_directory(folder))
    for (const auto& entry : std::filesystem::directory_iterator(folder))
      if (entry.path().extension() == ".dwg") files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

class SampleFields : public testing::TestWithParam<std::filesystem::path> {
 protected:
  void SetUp() override {
    auto bytes = base::readFile(GetParam());
    ASSERT_TRUE(bytes.ok());
    auto file = readDwgFile(std::make_shared<SourceBytes>(std::move(bytes.value())));
    if (!file) GTEST_SKIP() << "not read yet";
    file_ = std::move(file.value());
    auto classes = readClasses(file_->classes(), file_->version());
    ASSERT_TRUE(classes.ok()) << base::toUtf8(classes.failure().text());
    classes_ = std::move(classes.value());
  }

  template <class Check>
  void forEachObject(const Check& check) {
    for (const ObjectPlace& place : file_->places()) {
      const auto object = file_->objectAt(place.offset);
      ASSERT_TRUE(object.ok());
      const auto frame =
          readFrame(object.value().data, object.value().handleBits, file_->version(), classes_);
      ASSERT_TRUE(frame.ok()) << std::hex << place.handle;
      EXPECT_EQ(frame.value().handle, place.handle);
      check(frame.value(), object.value());
    }
  }

  std::unique_ptr<DwgFile> file_;
  std::vector<FileClass> classes_;
};

TEST_P(SampleFields, DescriptionsEndWhereObjectsEnd) {
  std::size_t described = 0;
  forEachObject([&](const ObjectFrame& frame, const ObjectBytes&) {
    const Fields fields = readFields(frame);
    EXPECT_TRUE(fields.intact()) << std::hex << frame.handle << ' ' << frame.type.name;
    if (frame.type.kind == ObjectKind::kOther) return;
    ++described;
    const FieldRest rest = fieldRest(frame);
    EXPECT_EQ(rest.data + rest.texts + rest.handles, 0U)
        << std::hex << frame.handle << ' ' << frame.type.name << std::dec << ": " << rest.data << ' '
        << rest.texts << ' ' << rest.handles;
  });
  EXPECT_GT(described, 400U);
}

TEST_P(SampleFields, ObjectsWithoutChangesStayAsTheyAre) {
  forEachObject([&](const ObjectFrame& frame, const ObjectBytes& object) {
    const auto written = rewrite(frame, FieldChanges());
    ASSERT_TRUE(written.ok()) << frame.handle;
    EXPECT_TRUE(written.value().data == object.data) << std::hex << frame.handle << ' ' << frame.type.name;
    EXPECT_EQ(written.value().handleBits, object.handleBits);
  });
}

TEST_P(SampleFields, HeaderVariablesAreReadToTheEnd) {
  const Fields header = readHeader(file_->header(), file_->version());
  ASSERT_TRUE(header.complete());
  EXPECT_EQ(header.real("LTSCALE"), 1);
  EXPECT_EQ(header.handle("LAYER CONTROL"), 2U);
  EXPECT_EQ(header.handle("CLAYER"), 0x10U);
  EXPECT_EQ(header.handle("LTYPE BYBLOCK"), 0x14U);
  const std::uint64_t end = std::ranges::max(header.all(), {}, &Field::end).end;
  EXPECT_LT(file_->header().size() * 8 - end, 8U);
  const auto same = rewriteHeader(file_->header(), file_->version(), FieldChanges());
  ASSERT_TRUE(same.ok());
  EXPECT_TRUE(same.value() == file_->header());

  FieldChanges changes;
  changes.set("LTSCALE", 2.5);
  changes.set("MENU",
              hasWideTexts(file_->version()) ? Value(std::u16string(u"menu")) : Value(std::string("menu")));
  changes.setHandle("CLAYER", 0x275);
  const auto changed = rewriteHeader(file_->header(), file_->version(), changes);
  ASSERT_TRUE(changed.ok());
  const Fields after = readHeader(changed.value(), file_->version());
  EXPECT_EQ(after.real("LTSCALE"), 2.5);
  EXPECT_EQ(after.handle("CLAYER"), 0x275U);
  EXPECT_EQ(after.handle("LTYPE BYBLOCK"), 0x14U);
  FieldChanges back;
  for (const char* name : {"LTSCALE", "MENU", "CLAYER"}) back.set(name, header.find(name)->value);
  const auto restored = rewriteHeader(changed.value(), file_->version(), back);
  ASSERT_TRUE(restored.ok());
  EXPECT_TRUE(restored.value() == file_->header());
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleFields, testing::ValuesIn(samples()),
                         [](const auto& tested) { return tested.param.stem().string(); });
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(SampleFields);

}  // namespace
}  // namespace cad::dwg
