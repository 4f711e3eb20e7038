#include <windows.h>

#include "base/files.h"
#include "platform/module_loader.h"

namespace kiv {
namespace {

namespace fs = std::filesystem;

class Library : public SiblingModule {
 public:
  explicit Library(HMODULE handle) : handle_(handle) {}
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
  ~Library() override { FreeLibrary(handle_); }

 protected:
  PlainFunction address(const char* name) const override {
    return reinterpret_cast<PlainFunction>(GetProcAddress(handle_, name));
  }

 private:
  HMODULE handle_;
};

fs::path ownFolder() {
  static const wchar_t anchor = 0;
  HMODULE own = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (GetModuleHandleExW(kFlags, &anchor, &own) == 0) return {};
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(own, path.data(), static_cast<DWORD>(path.size())));
  return fs::path(path).parent_path();
}

}  // namespace

std::unique_ptr<SiblingModule> SiblingModule::load(const wchar_t* fileName) {
  const fs::path beside = base::findIgnoringCase(ownFolder(), fileName);
  // With the altered search path a sibling's own libraries are looked for beside it; it wants a full path.
  const HMODULE handle = beside.empty()
                             ? LoadLibraryW(fileName)
                             : LoadLibraryExW(beside.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (handle == nullptr) return nullptr;
  return std::make_unique<Library>(handle);
}

}  // namespace kiv
