#include "base/files.h"
#include "embedded/editor/module_library.h"

// The few functions of the system's loader, declared here so that its header stays out of the host.
extern "C" {
__declspec(dllimport) void* __stdcall LoadLibraryExW(const wchar_t* path, void* reserved,
                                                     unsigned long flags);
__declspec(dllimport) int __stdcall FreeLibrary(void* library);
__declspec(dllimport) void* __stdcall GetProcAddress(void* library, const char* name);
__declspec(dllimport) unsigned long __stdcall GetLastError();
__declspec(dllimport) unsigned long __stdcall GetModuleFileNameW(void* library, wchar_t* path,
                                                                 unsigned long capacity);
}

namespace cad {
namespace {

// A module's own libraries are looked for beside it, not beside the program. It wants a full path.
constexpr unsigned long kLoadWithAlteredSearchPath = 8;

class WindowsLibrary : public ModuleLibrary {
 public:
  explicit WindowsLibrary(void* handle) : handle_(handle) {}
  WindowsLibrary(const WindowsLibrary&) = delete;
  WindowsLibrary& operator=(const WindowsLibrary&) = delete;
  ~WindowsLibrary() override { FreeLibrary(handle_); }
  void* symbol(const char* name) const override { return GetProcAddress(handle_, name); }

 private:
  void* handle_;
};

}  // namespace

base::Result<std::unique_ptr<ModuleLibrary>> ModuleLibrary::load(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::path full = std::filesystem::absolute(path, error);
  if (error) full = path;
  void* handle = LoadLibraryExW(full.make_preferred().c_str(), nullptr, kLoadWithAlteredSearchPath);
  if (handle != nullptr) return std::unique_ptr<ModuleLibrary>(std::make_unique<WindowsLibrary>(handle));
  const std::wstring code = std::to_wstring(GetLastError());
  return base::Failure{base::pathText(path), L"The system cannot load it (error " + code + L")."};
}

std::filesystem::path programPath() {
  std::wstring buffer(32768, L'\0');
  const unsigned long length = GetModuleFileNameW(nullptr, buffer.data(), 32768);
  return buffer.substr(0, length);
}

}  // namespace cad
