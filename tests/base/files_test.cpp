#include "base/files.h"

#include <algorithm>
#include <chrono>
#if !defined(_WIN32)
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#endif

#include "base/folder_creation.h"
#include "base/process_facts.h"
#include "base/temporary_files.h"
#include "tests/support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

// While it lives, a superuser is nobody in particular: nothing would be protected otherwise.
struct OrdinaryUser {
#if !defined(_WIN32)
  OrdinaryUser() { EXPECT_TRUE(!isPrivileged || setresuid(65534, 65534, 0) == 0); }
  ~OrdinaryUser() { EXPECT_TRUE(!isPrivileged || setresuid(0, 0, 0) == 0); }
  const bool isPrivileged = getuid() == 0;
#else
  OrdinaryUser() {}  // a read-only file is so for everybody
#endif
};

class Files : public test_support::TempFolder {};

TEST_F(Files, ReadsWholeFileAndNamesWhatIsWrong) {
  EXPECT_EQ(base::readFile(make("a", std::string("x\r\n\0y", 5))).value(), std::string("x\r\n\0y", 5));
  EXPECT_EQ(base::readFile(make("empty", "")).value(), "");
  const auto missing = base::readFile(folder_ / "none");
  ASSERT_FALSE(missing.ok());
  EXPECT_EQ(missing.failure().text(), base::pathText(folder_ / "none") + L": the file does not exist");
  EXPECT_EQ(base::readFile(folder_).failure().reason, L"this is a folder, not a file");
}

TEST_F(Files, BytesSurviveReplacement) {
  const fs::path path = make("a", "old");
  const auto read = base::FileBytes::open(path);
  ASSERT_TRUE(read.ok());
  ASSERT_TRUE(base::writeFileAtomically(path, "new content").ok());
  EXPECT_EQ(read.value()->bytes(), "old");
  EXPECT_EQ(base::readFile(path).value(), "new content");
}

TEST_F(Files, WhatNobodyWillFinishIsRemovedAndNothingElse) {
  constexpr unsigned long kNobody = 2000000000;
  const auto left = [&](const std::string& machine, unsigned long process, std::chrono::hours age) {
    const fs::path path = make(".tmp-kiv-" + machine + "-" + std::to_string(process) + "-3", "half");
    fs::last_write_time(path, fs::file_time_type::clock::now() - age);
    return path;
  };
  const std::string here = base::machineName(), elsewhere = here + "-2";
  using std::chrono::hours;
  const auto leftFolder = [&](const std::string& number, const fs::path& inside) {
    const fs::path path = folder_ / (".tmp-kiv-" + here + "-" + std::to_string(kNobody) + "-" + number);
    fs::create_directories(path / inside);
    std::ofstream(path / "a.cvt") << "half";
    return path;
  };
  leftFolder("4", "a folder, so somebody else's");
  const fs::path gone[] = {leftFolder("5", ""), left(here, kNobody, hours(0)),
                           left(here, base::ownProcess(), hours(0)), left(elsewhere, kNobody, hours(25))};
  make(".tmp-kiv-", ""), make(".tmp-kiv-x-y", ""), make(".tmp-5-0", ""),
      left(elsewhere, kNobody + 1, hours(23));
  const auto written = base::AtomicFile::create(folder_ / "a");  // of this process, but open
#if !defined(_WIN32)
  left(here, static_cast<unsigned long>(getppid()), hours(0));
#else
  make("instead", "");
#endif
  base::removeAbandonedTemporaryFiles(folder_);
  for (const fs::path& path : gone) EXPECT_FALSE(fs::exists(path)) << path;
  EXPECT_EQ(count(), 7U);
  EXPECT_TRUE(written.value()->commit().ok());
  EXPECT_EQ(count(), 7U);
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

TEST_F(Files, WhatWasWrittenCanBeOverwritten) {
  const std::string large(3 << 20, 'L');
  auto file = base::AtomicFile::create(folder_ / "a");
  ASSERT_TRUE(file.ok());
  file.value()->write("head");
  file.value()->overwrite(1, "EA");
  file.value()->write(large);
  file.value()->overwrite(3, "D--");
  file.value()->write("tail");
  ASSERT_TRUE(file.value()->commit().ok());
  EXPECT_EQ(base::readFile(folder_ / "a").value(), "hEAD--" + large.substr(2) + "tail");
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
#if defined(_WIN32)
  constexpr const char* kDevice = "NUL";
#else
  constexpr const char* kDevice = "/dev/null";
#endif
  EXPECT_FALSE(base::writeFileAtomically(kDevice, "x").ok());
  EXPECT_EQ(count(), 0U);
}

TEST_F(Files, AFolderIsMadeWithTheFilesThatCanBeRead) {
  const fs::path a = make("a", "1"), folder = folder_ / "made";
  fs::create_directory(folder_ /
                       (".tmp-kiv-" + base::machineName() + "-2000000000-0"));  // of a killed process
  EXPECT_FALSE(base::createFolderWith(folder / "", {folder_ / "none", a}).ok());
  EXPECT_EQ(base::readFile(folder / "a").value(), "1");
  ASSERT_TRUE(base::createFolderWith(folder, {make("b", "2")}).ok());
  EXPECT_FALSE(fs::exists(folder / "b"));
  EXPECT_EQ(base::createFolderWith(a, {}).failure().kind, base::FailureKind::kFileInTheWay);
  EXPECT_FALSE(base::createFolderWith(folder_ / "no" / "made", {}).ok());
  EXPECT_EQ(count(), 3U);
}

TEST_F(Files, OnlyFilesAreRemoved) {
  const fs::path path = make("a", "");
  EXPECT_TRUE(base::removeFile(path).ok());
  EXPECT_TRUE(base::removeFile(path).ok());
  EXPECT_EQ(count(), 0U);
  EXPECT_EQ(base::removeFile(folder_).failure().kind, base::FailureKind::kIsAFolder);
}

#if !defined(_WIN32)  // permissions by mode, links that anybody can make, names in any encoding and any case

TEST_F(Files, KeepsPermissionsAndLinks) {
  const fs::path path = make("real", "old");
  fs::permissions(path, fs::perms(0640));
  fs::create_symlink(path, folder_ / "link");
  ASSERT_TRUE(base::writeFileAtomically(folder_ / "link", "new").ok());
  EXPECT_TRUE(fs::is_symlink(folder_ / "link"));
  EXPECT_EQ(base::readFile(path).value(), "new");
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
}

TEST_F(Files, AFileThatIsCutOffWhileItIsReadTellsItAndStaysWhole) {
  const std::string content(1 << 20, 'x');
  for (const std::size_t left : {std::size_t{0}, content.size() - 100}) {
    const fs::path path = make("a", content);
    const auto read = base::FileBytes::open(path);
    ASSERT_TRUE(read.ok());
    EXPECT_TRUE(read.value()->checkUnchanged().ok());
    fs::resize_file(path, left);
    EXPECT_EQ(read.value()->bytes(), content);
    EXPECT_EQ(read.value()->checkUnchanged().failure().kind, base::FailureKind::kChangedWhileRead);
  }
}

class FilesDeathTest : public Files {};

TEST_F(FilesDeathTest, ASignalRemovesWhatIsBeingWritten) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    const auto writeUntilSignal = [&] {
      base::removeTemporaryFilesOnSignals();
      EXPECT_TRUE(base::writeFileAtomically(folder_ / "whole", "whole").ok());
      const auto half = base::AtomicFile::create(folder_ / "half");
      raise(count() == 2 ? signal : SIGKILL);
    };
    EXPECT_EXIT(writeUntilSignal(), ::testing::KilledBySignal(signal), "");
    EXPECT_EQ(count(), 1U);
    EXPECT_EQ(content("whole"), "whole");
  }
  EXPECT_EXIT(
      {
        std::signal(SIGHUP, SIG_IGN);  // as under nohup
        base::removeTemporaryFilesOnSignals();
        raise(SIGHUP);
        _exit(0);
      },
      ::testing::ExitedWithCode(0), "");
}

TEST_F(FilesDeathTest, AFileBeyondTheLimitIsAMessage) {
  const auto writeTooMuch = [&] {
    base::removeTemporaryFilesOnSignals();
    const rlimit limit{4096, 4096};
    setrlimit(RLIMIT_FSIZE, &limit);
    const base::Status status = base::writeFileAtomically(folder_ / "a", std::string(1 << 20, 'x'));
    std::fputs(base::toUtf8(status.failure().text()).c_str(), stderr);
    _exit(0);
  };
  EXPECT_EXIT(writeTooMuch(), ::testing::ExitedWithCode(0), "/a: the file becomes larger than .* limit");
  EXPECT_EQ(count(), 0U);
}

TEST_F(Files, AnExactMatchWins) {
  make("Sample.LIST", "");
  make("SAMPLE.list", "");
  EXPECT_EQ(base::findIgnoringCase(folder_, L"Sample.LIST").filename(), "Sample.LIST");
  EXPECT_EQ(base::findIgnoringCase(folder_, L"sample.list").filename(), "SAMPLE.list");
}

TEST(PathText, NamesThatAreNotUtf8Survive) {
  const fs::path path = "dir/\x89\xe6-図.dxf";
  EXPECT_EQ(base::pathFromText(base::pathText(path)), path);
}

#else

TEST_F(Files, AFileHeldByAnotherProgramIsNamedAndFreedAgain) {
  const fs::path path = make("a", "old");
  {
    std::ifstream holder(path);  // opened without leave to delete it
    EXPECT_EQ(base::writeFileAtomically(path, "new").failure().reason, L"another program has the file open");
    EXPECT_EQ(base::removeFile(path).failure().kind, base::FailureKind::kOpenElsewhere);
  }
  EXPECT_TRUE(base::writeFileAtomically(path, "new").ok());
  EXPECT_EQ(count(), 1U);
}

TEST(PathText, SeparatorsAreTheSystems) {
  EXPECT_EQ(base::pathText(fs::path(L"Z:/図") / "a.dxf"), L"Z:\\図\\a.dxf");
}

#endif

TEST_F(Files, ProtectedFileIsNotReplaced) {
  const fs::path path = make("a", "old");
  fs::permissions(path, fs::perms(0444));
  fs::permissions(folder_, fs::perms(0777));
  base::Status written, removed;
  {
    const OrdinaryUser user;
    written = base::writeFileAtomically(path, "new");
    removed = base::removeFile(path);
  }
  fs::permissions(path, fs::perms(0644));  // so that it can be deleted
  EXPECT_EQ(written.failure().reason, L"permission denied");
  EXPECT_EQ(removed.failure().reason, L"permission denied");
}

TEST_F(Files, FindsIgnoringCase) {
  make("Sample.LIST", "");
  EXPECT_TRUE(fs::exists(base::findIgnoringCase(folder_, L"sample.list")));
  EXPECT_TRUE(base::findIgnoringCase(folder_, L"other.list").empty());
  EXPECT_TRUE(base::findIgnoringCase(folder_ / "no", L"a").empty());
}

}  // namespace
