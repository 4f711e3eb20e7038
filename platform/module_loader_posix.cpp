#include <dlfcn.h>

#include <system_error>

#include "base/files.h"
#include "platform/module_loader.h"

namespace kiv {
namespace {

namespace fs = std::filesystem;

class SharedObject : public SiblingModule {
 public:
  explicit SharedObject(void* handle) : handle_(handle) {}
  SharedObject(const SharedObject&) = delete;
  SharedObject& operator=(const SharedObject&) = delete;
  ~SharedObject() override { ::dlclose(handle_); }

 protected:
  PlainFunction address(const char* name) const override {
    return reinterpret_cast<PlainFunction>(::dlsym(handle_, name));
  }

 private:
  void* handle_;
};

fs::path ownFolder() {
  static const char anchor = 0;
  Dl_info info{};
  if (::dladdr(&anchor, &info) == 0 || !info.dli_fname) return {};
  return fs::path(info.dli_fname).parent_path();
}

}  // namespace

std::unique_ptr<SiblingModule> SiblingModule::load(const wchar_t* fileName) {
  const fs::path beside = base::findIgnoringCase(ownFolder(), fileName);
  // Without a separator the system would search its library folders only.
  std::error_code error;
  fs::path file = beside.empty() ? base::pathFromText(fileName) : fs::absolute(beside, error);
  if (error) file = fs::path(".") / beside;
  void* handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  return handle ? std::make_unique<SharedObject>(handle) : nullptr;
}

}  // namespace kiv
