// Every object of the sample drawings by its fields.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "base/utf8.h"
#include "embedded/dwg/fields/extended_data.h"
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
    ASSERT_TRUE(file.ok()) << base::toUtf8(file.failure().text());
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
    if (frame.type.kind == ObjectKind::kOther || frame.type.kind == ObjectKind::kTable) return;
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

// Another value of the same type; none where the value tells what follows.
std::optional<Value> another(const Field& field) {
  const auto ends = [&](std::string_view with) { return field.name.ends_with(with); };
  if (field.type == BitType::kImplied || field.type == BitType::kBytes || field.name == "scale")
    return std::nullopt;
  if (const auto* real = std::get_if<double>(&field.value)) {
    if (field.name == "start width") return *real + 1;  // below 0 it counts for both ends
    return *real == 1 ? 0.123 : *real * 1.25 + 1;
  }
  if (const auto* point = std::get_if<Point>(&field.value)) {
    const bool flat =
        field.type == BitType::k2RD || field.type == BitType::k2BD || field.type == BitType::k2DD;
    return Point{point->x + 0.5, point->y * 3 + 1, flat ? 0 : point->z + 7};
  }
  if (const auto* text = std::get_if<std::string>(&field.value)) return *text + "xyz";
  if (const auto* text = std::get_if<std::u16string>(&field.value)) return *text + u"xyz";
  if (const auto* reference = std::get_if<HandleReference>(&field.value))
    return HandleReference{kAnyCode, 0, reference->value == 0x1234 ? 0x99U : 0x1234U};
  if (field.part != Part::kWhole || field.name == "color" || ends("count") || ends("size") || ends("flags")) {
    return std::nullopt;
  }
  static constexpr std::string_view kTelling[] = {"has graphics",
                                                  "entity mode",
                                                  "linetype by layer",
                                                  "no dictionary",
                                                  "no links",
                                                  "has bulges",
                                                  "segment type",
                                                  "solid",
                                                  "columns type",
                                                  "column auto height",
                                                  "weighted",
                                                  "rational",
                                                  "form",
                                                  "knot parameter",
                                                  "has attributes",
                                                  "scale form",
                                                  "is flat",
                                                  "no edge flags",
                                                  "not annotative",
                                                  "insert mark",
                                                  "external",
                                                  "overlaid",
                                                  "attribute type",
                                                  "has full visual style",
                                                  "has face visual style",
                                                  "has edge visual style",
                                                  "flags"};
  if (std::ranges::find(kTelling, field.name) != std::end(kTelling)) return std::nullopt;
  const auto* integer = std::get_if<std::int64_t>(&field.value);
  return integer != nullptr ? std::optional<Value>(*integer ^ 1) : std::nullopt;
}

TEST_P(SampleFields, EachFieldChangesAloneAndBack) {
  std::map<std::uint16_t, int> seen;
  forEachObject([&](const ObjectFrame& frame, const ObjectBytes& object) {
    if (++seen[frame.type.number] > 4) return;
    const Fields before = readFields(frame);
    const std::size_t step = before.all().size() / 300 + 1;  // long lists of points are alike
    for (std::size_t i = 0; i < before.all().size(); i += step) {
      const Field& field = before.all()[i];
      const std::optional<Value> value = another(field);
      if (!value) continue;
      const std::string what(field.name);
      SCOPED_TRACE(std::to_string(frame.handle) + ' ' + std::string(frame.type.name) + ' ' + what);
      FieldChanges changes;
      changes.set(field.name, *value, field.index, field.part);
      const auto changed = rewrite(frame, changes);
      ASSERT_TRUE(changed.ok());
      const auto changedFrame =
          readFrame(changed.value().data, changed.value().handleBits, frame.version, classes_);
      ASSERT_TRUE(changedFrame.ok());
      const Fields after = readFields(changedFrame.value());
      ASSERT_TRUE(after.intact());
      ASSERT_EQ(after.complete(), before.complete());
      ASSERT_EQ(after.all().size(), before.all().size());
      for (std::size_t k = 0; k < after.all().size(); ++k) {
        const Field &was = before.all()[k], &is = after.all()[k];
        const bool follows = is.name == "columns " + what;  // what stands there twice
        ASSERT_TRUE(k == i || follows || was.type == BitType::kImplied || same(was.value, is.value))
            << is.name;
      }
      if (const auto* reference = std::get_if<HandleReference>(&after.all()[i].value)) {
        ASSERT_EQ(reference->absolute(frame.handle), std::get<HandleReference>(*value).value);
      } else {
        ASSERT_TRUE(same(after.all()[i].value, *value));
      }
      FieldChanges back;
      if (const auto* reference = std::get_if<HandleReference>(&field.value)) {
        back.set(field.name, Value(HandleReference{kAnyCode, 0, reference->absolute(frame.handle)}),
                 field.index, field.part);
      } else {
        back.set(field.name, field.value, field.index, field.part);
      }
      const auto restored = rewrite(changedFrame.value(), back);
      ASSERT_TRUE(restored.ok());
      ASSERT_TRUE(restored.value().data == object.data);
    }
  });
}

TEST_P(SampleFields, ObjectsMadeOfTheirValuesAreTheSame) {
  forEachObject([&](const ObjectFrame& frame, const ObjectBytes& object) {
    const Fields fields = readFields(frame);
    if (!fields.complete()) return;
    FieldChanges values;
    for (const Field& field : fields.all()) {
      const bool isSpan = std::holds_alternative<std::monostate>(field.value);
      values.set(field.name, isSpan ? Value(fields.bytes(field)) : field.value, field.index, field.part);
    }
    const auto extended = readExtendedData(frame);
    ASSERT_TRUE(extended.ok());
    std::vector<ExtendedData> rebuilt = extended.value();
    for (ExtendedData& data : rebuilt) {
      const auto decoded = decodeExtended(data.bytes, frame.version);
      ASSERT_TRUE(decoded.ok());
      const auto encoded = encodeExtended(decoded.value());
      ASSERT_TRUE(encoded.ok());
      data.bytes = encoded.value();
    }
    values.setExtendedData(rebuilt);
    const auto made = build(frame.type.kind, frame.version, frame.handle, values, classes_);
    ASSERT_TRUE(made.ok()) << base::toUtf8(made.failure().text());
    EXPECT_TRUE(made.value().data == object.data) << std::hex << frame.handle << ' ' << frame.type.name;
  });
}

TEST_P(SampleFields, HeaderVariablesAreReadToTheEnd) {
  const Fields header = readHeader(file_->header(), file_->version());
  ASSERT_TRUE(header.complete());
  EXPECT_EQ(header.real("LTSCALE"), 1);
  EXPECT_EQ(header.handle("LAYER CONTROL"), 2U);
  EXPECT_EQ(header.handle("CLAYER"), 0x10U);
  EXPECT_EQ(header.handle("LTYPE BYBLOCK"), 0x14U);
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
