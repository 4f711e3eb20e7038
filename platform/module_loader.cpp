#include "platform/module_loader.h"

#include <system_error>

#include "base/files.h"

namespace kiv {

namespace fs = std::filesystem;

std::unique_ptr<base::DynamicLibrary> loadSibling(const wchar_t* fileName) {
  static const char anchor = 0;
  const fs::path folder = base::libraryFile(&anchor).parent_path();
  const fs::path beside = base::findIgnoringCase(folder, fileName);
  fs::path file = base::pathFromText(fileName);
  if (!beside.empty()) {
    // A path without a folder would be looked for by the system, which does not look beside this module.
    std::error_code error;
    file = fs::absolute(beside, error);
    if (error) file = fs::path(".") / beside;
  }
  auto loaded = base::DynamicLibrary::load(file);
  return loaded ? std::move(loaded.value()) : nullptr;
}

}  // namespace kiv
