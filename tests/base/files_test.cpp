#include "base/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace {

namespace fs = std::filesystem;

class Files : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_ = fs::temp_directory_path() / ("base_files_" + std::to_string(::getpid()));
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  fs::path make(const std::string& name, const std::string& content) {
    std::ofstream(folder_ / name, std::ios::binary) << content;
    return folder_ / name;
  }
  size_t count() const { return static_cast<size_t>(std::distance(fs::directory_iterator(folder_), {})); }

  fs::path folder_;
};

TEST_F(Files, ReadsWholeFileAndNamesWhatIsWrong) {
  EXPECT_EQ(base::readFile(make("a", std::string("x\r\n\0y", 5))).value(), std::string("x\r\n\0y", 5));
  EXPECT_EQ(base::readFile(make("empty", "")).value(), "");
  const auto missing = base::readFile(folder_ / "none");
  ASSERT_FALSE(missing.ok());
  EXPECT_EQ(missing.failure().text(), base::pathText(folder_ / "none") + L": the file does not exist");
  EXPECT_EQ(base::readFile(folder_).failure().reason, L"this is a folder, not a file");
}

TEST_F(Files, MappedBytesSurviveReplacement) {
  const fs::path path = make("a", "old");
  const auto mapped = base::MappedFile::open(path);
  ASSERT_TRUE(mapped.ok());
  ASSERT_TRUE(base::writeFileAtomically(path, "new content").ok());
  EXPECT_EQ(mapped.value()->bytes(), "old");
  EXPECT_EQ(base::readFile(path).value(), "new content");
}

TEST_F(Files, WritesSmallAndLargePiecesInOrder) {
  const std::string large(3 << 20, 'L');
  auto file = base::AtomicFile::create(folder_ / "a");
  ASSERT_TRUE(file.ok());
  file.value()->write("head");
  file.value()->write(large);
  file.value()->write("tail");
  ASSERT_TRUE(file.value()->commit().ok());
  EXPECT_EQ(base::readFile(folder_ / "a").value(), "head" + large + "tail");
}

TEST_F(Files, WithoutCommitNothingStays) {
  const fs::path path = make("a", "old");
  {
    auto file = base::AtomicFile::create(path);
    ASSERT_TRUE(file.ok());
    file.value()->write("half");
    EXPECT_EQ(count(), 2U);
  }
  EXPECT_EQ(count(), 1U);
  EXPECT_EQ(base::readFile(path).value(), "old");
}

TEST_F(Files, RefusalsLeaveNothingBehind) {
  EXPECT_EQ(base::writeFileAtomically(folder_, "x").failure().reason, L"this is a folder, not a file");
  EXPECT_EQ(base::writeFileAtomically(folder_ / "no" / "a", "x").failure().reason,
            L"the folder does not exist");
  EXPECT_FALSE(base::writeFileAtomically("/dev/null", "x").ok());
  EXPECT_EQ(count(), 0U);
}

TEST_F(Files, KeepsPermissionsAndLinks) {
  const fs::path path = make("real", "old");
  fs::permissions(path, fs::perms(0640));
  fs::create_symlink(path, folder_ / "link");
  ASSERT_TRUE(base::writeFileAtomically(folder_ / "link", "new").ok());
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(base::readFile(path).value(), "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(Files, ProtectedFileIsNotReplaced) {
  if (::geteuid() == 0) GTEST_SKIP() << "nothing is protected from the superuser";
  const fs::path path = make("a", "old");
  fs::permissions(path, fs::perms(0444));
  EXPECT_EQ(base::writeFileAtomically(path, "new").failure().reason, L"permission denied");
}

TEST_F(Files, FindsIgnoringCase) {
  make("Sample.LIST", "");
  make("SAMPLE.list", "");
  EXPECT_EQ(base::findIgnoringCase(folder_, L"Sample.LIST").filename(), "Sample.LIST");
  EXPECT_EQ(base::findIgnoringCase(folder_, L"sample.list").filename(), "SAMPLE.list");
  EXPECT_TRUE(base::findIgnoringCase(folder_, L"other.list").empty());
  EXPECT_TRUE(base::findIgnoringCase(folder_ / "no", L"a").empty());
}

TEST(PathText, NamesThatAreNotUtf8Survive) {
  const fs::path path = "dir/\x89\xe6-図.dxf";
  EXPECT_EQ(base::pathFromText(base::pathText(path)), path);
}

}  // namespace
