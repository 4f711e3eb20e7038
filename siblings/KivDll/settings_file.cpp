// Where a user's settings are kept.

#include <cstdlib>

#include "siblings/KivDll/settings_store.h"

namespace kiv {
namespace {

namespace fs = std::filesystem;

// The folder that a variable of the environment names; empty when it is not set. A relative one counts only
// where a person asks for it.
fs::path folderIn(const char* variable) {
#if defined(_WIN32)
  const wchar_t* value = ::_wgetenv(fs::path(variable).c_str());
#else
  const char* value = std::getenv(variable);
#endif
  return value == nullptr ? fs::path() : fs::path(value);
}

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

}  // namespace kiv
