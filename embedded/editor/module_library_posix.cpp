#include <dlfcn.h>

#include "base/codepage.h"
#include "base/files.h"
#include "embedded/editor/module_library.h"

namespace cad {
namespace {

class PosixLibrary : public ModuleLibrary {
 public:
  explicit PosixLibrary(void* handle) : handle_(handle) {}
  ~PosixLibrary() override { dlclose(handle_); }
  void* symbol(const char* name) const override { return dlsym(handle_, name); }

 private:
  void* handle_;
};

}  // namespace

base::Result<std::unique_ptr<ModuleLibrary>> ModuleLibrary::load(const std::filesystem::path& path) {
  void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle != nullptr) return std::unique_ptr<ModuleLibrary>(std::make_unique<PosixLibrary>(handle));
  const char* reason = dlerror();
  return base::Failure{base::pathText(path), base::fromUtf8(reason == nullptr ? "cannot be loaded" : reason)};
}

std::filesystem::path programPath() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error);
}

}  // namespace cad
