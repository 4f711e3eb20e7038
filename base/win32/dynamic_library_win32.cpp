#include <windows.h>

#include "base/dynamic_library.h"
#include "base/win32/error_win32.h"

namespace base {
namespace {

namespace fs = std::filesystem;

HMODULE moduleOf(void* handle) { return static_cast<HMODULE>(handle); }

fs::path fileOf(HMODULE module) {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

// With the altered search path a library's own ones are looked for beside it; it wants a full path.
HMODULE loadFrom(const fs::path& file) {
  if (!file.has_parent_path()) return LoadLibraryW(file.c_str());
  std::error_code error;
  fs::path full = fs::absolute(file, error);
  if (error) full = file;
  return LoadLibraryExW(full.make_preferred().c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace

Result<std::unique_ptr<DynamicLibrary>> DynamicLibrary::load(const fs::path& file) {
  if (const HMODULE handle = loadFrom(file))
    return std::unique_ptr<DynamicLibrary>(new DynamicLibrary(handle));
  return systemFailure(file, GetLastError());
}

DynamicLibrary::~DynamicLibrary() { FreeLibrary(moduleOf(handle_)); }

DynamicLibrary::PlainFunction DynamicLibrary::address(const char* name) const {
  return reinterpret_cast<PlainFunction>(GetProcAddress(moduleOf(handle_), name));
}

fs::path programFile() { return fileOf(nullptr); }

fs::path libraryFile(const void* anchor) {
  HMODULE module = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  const auto* address = static_cast<const wchar_t*>(anchor);
  return GetModuleHandleExW(kFlags, address, &module) == 0 ? fs::path() : fileOf(module);
}

bool keepLoaded(const void* anchor) {
  HMODULE module = nullptr;
  return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                            static_cast<const wchar_t*>(anchor), &module);
}

}  // namespace base
