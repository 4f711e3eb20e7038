#pragma once
// A folder of a test's own, removed at its end.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "base/codepage.h"
#include "base/files.h"
#include "tests/support/temp_path.h"

namespace test_support {

class TempFolder : public ::testing::Test {
 protected:
  TempFolder() {
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string("kiv_") + info->test_suite_name() + "_" + info->name();
    std::replace(name.begin(), name.end(), '/', '_');
    folder_ = tempPath(name);
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~TempFolder() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  std::filesystem::path make(const std::filesystem::path& name, std::string_view bytes) const {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
    return folder_ / name;
  }
  // The text in code page 932; "\n" stays as it is.
  std::filesystem::path makeText(const std::string& name, std::wstring_view text) const {
    return make(name, base::encode(text, base::kJapanese).bytes);
  }
  std::string content(const std::filesystem::path& name) const {
    return base::readFile(folder_ / name).value();
  }
  size_t count() const {
    return static_cast<size_t>(std::distance(std::filesystem::directory_iterator(folder_), {}));
  }

  std::filesystem::path folder_;
};

}  // namespace test_support
