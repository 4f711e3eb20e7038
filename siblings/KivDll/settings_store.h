#pragma once
// The settings of a user, in a file that several processes read and write.

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "base/result.h"
#include "siblings/KivDll/settings_text.h"

namespace kiv {

class SettingsStore {
 public:
  explicit SettingsStore(std::filesystem::path file) : file_(std::move(file)) {}

  // What the file holds now, whoever wrote it. While it cannot be read, or its folder is out of reach, that
  // is what it held when it was read last: a program at work does not fall back to defaults in between.
  std::optional<std::wstring> read(std::wstring_view key);
  // Makes the folder when it is missing. A file that exists but cannot be read is not replaced.
  base::Status write(std::wstring_view key, std::wstring_view value);

 private:
  base::Status refresh();

  std::filesystem::path file_;
  std::mutex mutex_;
  std::string bytes_;  // what `text_` was made of
  SettingsText text_;
};

// The user's settings file: "common.cfg" in $KIV_CONFIG_FOLDER, else in the user's configuration folder of
// this suite; empty when the system tells no such folder.
std::filesystem::path settingsFile();

}  // namespace kiv
