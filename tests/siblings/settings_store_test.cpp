#include "siblings/KivDll/settings_store.h"

#include <thread>
#include <vector>

#include "tests/support/program.h"
#include "tests/support/temp_folder.h"

namespace kiv {
namespace {

namespace fs = std::filesystem;

class SettingsStoreTest : public test_support::TempFolder {
 protected:
  const fs::path file_ = folder_ / base::pathFromText(L"設定") / "common.cfg";
};

TEST_F(SettingsStoreTest, TheFolderComesWithTheFirstSetting) {
  SettingsStore store(file_);
  EXPECT_EQ(store.read(L"KivBlock"), std::nullopt);
  EXPECT_EQ(count(), 0U);
  ASSERT_TRUE(store.write(L"KivBlock", L"1").ok());
  EXPECT_EQ(store.read(L"kivblock"), L"1");
  EXPECT_EQ(base::readFile(file_).value(), "KivBlock = 1\n");
  EXPECT_FALSE(store.write(L"", L"1").ok());
}

TEST_F(SettingsStoreTest, ChangesOfOthersAreSeenAndKept) {
  SettingsStore store(file_), other(file_);
  ASSERT_TRUE(store.write(L"A", L"1").ok());
  ASSERT_TRUE(other.write(L"B", L"2").ok());
  EXPECT_EQ(store.read(L"B"), L"2");
  make(file_, "# by hand\nA = 9\n");
  EXPECT_EQ(store.read(L"A"), L"9");
  EXPECT_EQ(store.read(L"B"), std::nullopt);
  ASSERT_TRUE(store.write(L"C", L"3").ok());
  EXPECT_EQ(base::readFile(file_).value(), "# by hand\nA = 9\nC = 3\n");
  fs::remove(file_);
  EXPECT_EQ(other.read(L"A"), std::nullopt);
}

TEST_F(SettingsStoreTest, AFileThatCannotBeReadIsNotReplaced) {
  fs::create_directories(file_);
  SettingsStore store(file_);
  EXPECT_EQ(store.read(L"A"), std::nullopt);
  EXPECT_FALSE(store.write(L"A", L"1").ok());
  EXPECT_TRUE(fs::is_directory(file_));
}

TEST_F(SettingsStoreTest, WhatWasReadLastHoldsWhileTheFileIsOutOfReach) {
  SettingsStore store(file_);
  ASSERT_TRUE(store.write(L"A", L"1").ok());
  fs::rename(file_.parent_path(), folder_ / "away");
  EXPECT_EQ(store.read(L"A"), L"1");
  fs::create_directories(file_);
  EXPECT_EQ(store.read(L"A"), L"1");
  fs::remove(file_);
  EXPECT_EQ(store.read(L"A"), std::nullopt);
}

#if !defined(_WIN32)  // links that anybody can make

// A link to itself cannot even be looked at; no user is privileged enough.
TEST_F(SettingsStoreTest, AFileThatCannotBeLookedAtIsNotReplaced) {
  fs::create_directories(file_.parent_path());
  fs::create_symlink(file_.filename(), file_);
  SettingsStore store(file_);
  EXPECT_EQ(store.read(L"A"), std::nullopt);
  EXPECT_FALSE(store.write(L"A", L"1").ok());
  EXPECT_TRUE(fs::is_symlink(fs::symlink_status(file_)));
}

#endif

TEST_F(SettingsStoreTest, ThreadsLoseNothing) {
  constexpr int kThreads = 4, kEach = 25;
  SettingsStore shared(file_);
  std::vector<std::thread> threads;
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([&, number] {
      SettingsStore own(file_);
      SettingsStore& store = number % 2 == 0 ? shared : own;
      for (int i = 0; i < kEach; ++i) {
        EXPECT_TRUE(store.write(std::to_wstring(number) + L"/" + std::to_wstring(i), L"x").ok());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (int number = 0; number < kThreads; ++number) {
    for (int i = 0; i < kEach; ++i) {
      EXPECT_EQ(shared.read(std::to_wstring(number) + L"/" + std::to_wstring(i)), L"x");
    }
  }
}

TEST_F(SettingsStoreTest, ProcessesLoseNothing) {
  constexpr int kEach = 40;
  fs::create_directories(file_.parent_path());
  std::vector<std::thread> callers;
  for (const auto& [name, other] : {std::pair{"left", "right"}, std::pair{"right", "left"}}) {
    callers.emplace_back([&, name = name, other = other] {
      const auto run = test_support::runProgram(
          KIV_SETTINGS_WRITER, {"common.cfg", name, other, std::to_string(kEach)}, file_.parent_path());
      EXPECT_EQ(run.status, 0) << run.err;
    });
  }
  for (std::thread& caller : callers) caller.join();
  SettingsStore store(file_);
  for (int i = 0; i < kEach; ++i) {
    EXPECT_EQ(store.read(L"left" + std::to_wstring(i)), std::to_wstring(i * i));
    EXPECT_EQ(store.read(L"right" + std::to_wstring(i)), std::to_wstring(i * i));
  }
  for (const auto& entry : fs::directory_iterator(file_.parent_path())) {
    EXPECT_EQ(entry.path().filename().string().find(".tmp-"), std::string::npos) << entry.path();
  }
}

}  // namespace
}  // namespace kiv
