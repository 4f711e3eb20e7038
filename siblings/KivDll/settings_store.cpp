#include "siblings/KivDll/settings_store.h"

#include <system_error>

#include "base/environment.h"
#include "base/file_lock.h"
#include "base/files.h"

namespace kiv {

namespace fs = std::filesystem;

namespace {

// Empty when the variable is not set. A relative folder counts only where a person asks for it.
fs::path folderIn(const char* variable) { return base::environmentVariable(variable).value_or(fs::path()); }

fs::path userFolder() {
#if defined(_WIN32)
  const fs::path roaming = folderIn("APPDATA");
  return roaming.empty() ? roaming : roaming / "Kiv";
#else
  const fs::path configuration = folderIn("XDG_CONFIG_HOME");
  if (configuration.is_absolute()) return configuration / "kiv";
  const fs::path home = folderIn("HOME");
  return home.empty() ? home : home / ".config" / "kiv";
#endif
}

}  // namespace

fs::path settingsFile() {
  fs::path folder = folderIn("KIV_CONFIG_FOLDER");
  if (folder.empty()) folder = userFolder();
  return folder.empty() ? folder : folder / "common.cfg";
}

base::Status SettingsStore::refresh() {
  std::error_code error;
  std::string bytes;
  // Only a file that is known to be missing is empty: what cannot be looked at may hold everybody's settings,
  // and the folder of a missing one goes with a share that is out of reach.
  if (fs::status(file_, error).type() != fs::file_type::not_found) {
    base::Result<std::string> content = base::readFile(file_);
    if (!content) return content.failure();
    bytes = std::move(content.value());
  } else if (!fs::exists(file_.parent_path(), error)) {
    return {};
  }
  if (bytes == bytes_) return {};
  bytes_ = std::move(bytes);
  text_ = SettingsText(bytes_);
  return {};
}

std::optional<std::wstring> SettingsStore::read(std::wstring_view key) {
  const std::lock_guard<std::mutex> guard(mutex_);
  static_cast<void>(refresh());
  return text_.find(key);
}

base::Status SettingsStore::write(std::wstring_view key, std::wstring_view value) {
  const std::lock_guard<std::mutex> guard(mutex_);
  if (key.empty()) return base::Failure{{}, L"A setting needs a name"};
  std::error_code error;
  fs::create_directories(file_.parent_path(), error);
  fs::path lockFile = file_;
  lockFile += ".lock";
  const auto lock = base::FileLock::acquire(lockFile);
  if (!lock) return lock.failure();
  if (const base::Status status = refresh(); !status) return status;
  SettingsText changed = text_;
  if (!changed.set(key, value)) return {};
  std::string bytes = changed.bytes();
  if (const base::Status status = base::writeFileAtomically(file_, bytes); !status) return status;
  bytes_ = std::move(bytes);
  text_ = std::move(changed);
  return {};
}

}  // namespace kiv
