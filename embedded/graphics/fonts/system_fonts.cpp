#include "embedded/graphics/fonts/system_fonts.h"

#include <map>
#include <string>
#include <vector>

#include "base/environment.h"
#include "base/files.h"
#include "base/fold.h"

namespace cad {
namespace {

namespace fs = std::filesystem;

// Of Windows and of others; those that do not exist hold nothing. A user's fonts come behind the machine's.
std::vector<fs::path> fontFolders() {
  std::vector<fs::path> folders{"/usr/share/fonts", "/usr/local/share/fonts"};
  const auto add = [&](const char* variable, const char* folder) {
    if (const auto root = base::environmentVariable(variable)) folders.push_back(*root / folder);
  };
  add("SystemRoot", "Fonts");
  add("LOCALAPPDATA", "Microsoft/Windows/Fonts");
  add("HOME", ".local/share/fonts");
  add("HOME", ".fonts");
  return folders;
}

std::map<std::wstring, fs::path> fontFiles() {
  std::map<std::wstring, fs::path> files;
  for (const fs::path& folder : fontFolders()) {
    std::error_code failed;  // what cannot be read has no fonts
    const auto options = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(folder, options, failed), end; !failed && entry != end;
         entry.increment(failed)) {
      if (entry->is_regular_file(failed))
        files.try_emplace(base::upper(base::pathText(entry->path().filename())), entry->path());
      failed.clear();
    }
  }
  return files;
}

}  // namespace

fs::path systemFont(std::wstring_view file) {
  static const std::map<std::wstring, fs::path> kFiles = fontFiles();
  const auto found = kFiles.find(base::upper(file.substr(file.find_last_of(L"/\\") + 1)));
  return found == kFiles.end() ? fs::path() : found->second;
}

}  // namespace cad
