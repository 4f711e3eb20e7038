// Part of every test program: a person's own settings are neither read nor written by tests. The programs
// that a test starts inherit the folder.

#include <cstdlib>
#include <filesystem>

#include "tests/support/temp_path.h"

namespace {

struct SettingsFolder {
  SettingsFolder() {
    if (std::getenv("KIV_CONFIG_FOLDER") != nullptr) return;
    folder = test_support::tempPath("kiv_test_settings");
    test_support::setEnvironment("KIV_CONFIG_FOLDER", folder);
  }
  ~SettingsFolder() {
    std::error_code ignored;
    if (!folder.empty()) std::filesystem::remove_all(folder, ignored);
  }
  std::filesystem::path folder;
};

const SettingsFolder settingsFolder;

}  // namespace
