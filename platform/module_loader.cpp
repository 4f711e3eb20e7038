#include "platform/module_loader.h"

#include <system_error>

#include "base/codepage.h"
#include "base/files.h"
#include "platform/host_output.h"

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

Sibling::Sibling(const wchar_t* fileName) : fileName_(fileName), library_(loadSibling(fileName)) {
  if (!library_) printOnCommandLine(L"\n cannot found " + std::wstring(fileName) + L".");
}

void Sibling::sayMissing(const char* name) const {
  printOnCommandLine(L"\n cannot found " + base::fromUtf8(name) + L"() in " + fileName_ + L".");
}

}  // namespace kiv
