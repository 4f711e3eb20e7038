#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "base/files.h"
#include "embedded/dwg/files/dwg_file.h"

namespace cad::dwg {
namespace {

std::vector<std::filesystem::path> samples() {
  std::vector<std::filesystem::path> files;
  if (std::string_view(KIV_SAMPLES).empty()) return files;
  const auto folder = std::filesystem::path(KIV_SAMPLES).parent_path() / "dwg";
  for (const std::wstring& name : base::filesWithExtension(base::pathText(folder), L".dwg")) {
    files.push_back(folder / base::pathFromText(name));
  }
  return files;
}

std::unique_ptr<DwgFile> read(std::string bytes) {
  auto file = readDwgFile(std::make_shared<SourceBytes>(std::move(bytes)));
  if (!file) ADD_FAILURE() << base::toUtf8(file.failure().text());
  return file ? std::move(file.value()) : nullptr;
}

std::map<Handle, std::string> objectsOf(const DwgFile& file) {
  std::map<Handle, std::string> objects;
  for (const ObjectPlace& place : file.places())
    objects[place.handle] = file.objectAt(place.offset).value().whole;
  return objects;
}

// Until R2000 the place of the template stands in the fifth of the records at the file's beginning.
TEST(DwgSamples, TellWhetherTheyAreMetric) {
  for (const auto& path : samples()) {
    SCOPED_TRACE(path.string());
    std::string bytes = base::readFile(path).value();
    const auto file = read(bytes);
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->measurement(), 0);
    if (file->version() >= base::Version::kR2004) continue;
    constexpr std::size_t kAddress = 0x19 + 4 * 9 + 1;
    std::uint32_t at = 0;
    for (std::size_t i = 4; i-- > 0;) at = at << 8 | static_cast<unsigned char>(bytes.at(kAddress + i));
    bytes.at(at + 2) = 1;
    EXPECT_EQ(read(bytes)->measurement(), 1);
    bytes.at(at + 3) = 7;
    EXPECT_EQ(read(bytes)->measurement(), std::nullopt);
  }
}

TEST(DwgSamples, AreWrittenByteForByteAndWithOneObjectChanged) {
  for (const auto& path : samples()) {
    SCOPED_TRACE(path.string());
    const auto bytes = base::readFile(path);
    ASSERT_TRUE(bytes);
    const auto file = read(bytes.value());
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(file->write({}).value(), bytes.value());
    const std::size_t count = file->places().size();
    ASSERT_GT(count, 10U);

    const auto objectOf = [&](std::size_t number) {
      return file->objectAt(file->places()[number].offset).value();
    };
    const auto before = objectsOf(*file);
    const ObjectBytes object = objectOf(count / 2);
    const std::uint64_t more = file->version() >= Version::kR2010 ? 40 : 0;
    const ChangedObject same{file->places()[count / 2].handle, false, std::string(object.data),
                             object.handleBits};
    FileChanges changes;
    changes.objects = {same};
    EXPECT_EQ(file->write(changes).value(), bytes.value());  // the map as well is made as it was

    ChangedObject longer = same, added = same;
    longer.data += std::string(5, '\x55'), longer.handleBits += more;
    added.handle = file->places().back().handle + 5;
    const Handle erased = file->places()[count / 3].handle;
    changes.objects = {longer, added, {erased, true, {}, 0}};
    const auto now = read(file->write(changes).value());
    ASSERT_NE(now, nullptr);
    EXPECT_EQ(now->header(), file->header());
    EXPECT_EQ(now->classes(), file->classes());
    auto expected = before, actual = objectsOf(*now);
    EXPECT_EQ(actual[added.handle], before.at(same.handle));
    EXPECT_EQ(now->objectAt(now->find(same.handle)->offset).value().data, longer.data);
    for (const Handle handle : {added.handle, same.handle, erased})
      expected.erase(handle), actual.erase(handle);
    EXPECT_EQ(actual, expected);
  }
}

}  // namespace
}  // namespace cad::dwg
