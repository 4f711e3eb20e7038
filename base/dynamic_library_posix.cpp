#include <dlfcn.h>

#include "base/codepage.h"
#include "base/dynamic_library.h"
#include "base/files.h"

namespace base {

namespace fs = std::filesystem;

Result<std::unique_ptr<DynamicLibrary>> DynamicLibrary::load(const fs::path& file) {
  if (void* handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL))
    return std::unique_ptr<DynamicLibrary>(new DynamicLibrary(handle));
  const char* reason = ::dlerror();
  return Failure{pathText(file), fromUtf8(reason == nullptr ? "cannot be loaded" : reason)};
}

DynamicLibrary::~DynamicLibrary() { ::dlclose(handle_); }

DynamicLibrary::PlainFunction DynamicLibrary::address(const char* name) const {
  return reinterpret_cast<PlainFunction>(::dlsym(handle_, name));
}

fs::path programFile() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

fs::path libraryFile(const void* anchor) {
  Dl_info info{};
  return ::dladdr(anchor, &info) == 0 || info.dli_fname == nullptr ? fs::path() : fs::path(info.dli_fname);
}

bool keepLoaded(const void* anchor) {
  const fs::path file = libraryFile(anchor);
  std::error_code error;
  if (fs::equivalent(file, programFile(), error)) return true;
  return ::dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE) != nullptr;
}

}  // namespace base
