#include "base/file_lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "tests/support/temp_path.h"

namespace base {
namespace {

TEST(FileLock, OneHolderAtATime) {
  const std::filesystem::path file = test_support::tempPath("kiv_file_lock");
  std::atomic<int> holders = 0;
  std::atomic<bool> shared = false;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int turn = 0; turn < 200; ++turn) {
        const auto lock = FileLock::acquire(file);
        if (!lock.ok() || ++holders != 1) shared = true;
        std::this_thread::yield();
        --holders;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_FALSE(shared);
  EXPECT_FALSE(FileLock::acquire(file / "inside" / "a" / "file").ok());
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
}

}  // namespace
}  // namespace base
