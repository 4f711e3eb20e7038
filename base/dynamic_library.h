#pragma once
// Loadable libraries of the system, and where the running code stands.

#include <filesystem>
#include <memory>

#include "base/result.h"

namespace base {

class DynamicLibrary {
 public:
  // A name without a folder is looked for where the system looks. The libraries that `file` itself needs may
  // stand beside it. Failure: the file, and the system's reason.
  static Result<std::unique_ptr<DynamicLibrary>> load(const std::filesystem::path& file);
  ~DynamicLibrary();  // releases the library
  DynamicLibrary(const DynamicLibrary&) = delete;
  DynamicLibrary& operator=(const DynamicLibrary&) = delete;

  // An exported plain function; null when the library exports none of that name.
  template <class Function>
  Function function(const char* name) const {
    return reinterpret_cast<Function>(address(name));
  }

 private:
  explicit DynamicLibrary(void* handle) : handle_(handle) {}
  using PlainFunction = void (*)();
  PlainFunction address(const char* name) const;

  void* handle_;
};

// Both are empty when the system does not tell.
std::filesystem::path programFile();
// The program or library that has `anchor`, an object with static storage, in its image.
std::filesystem::path libraryFile(const void* anchor);

// The library that has `anchor` in its image stays until the process ends, whoever releases it: a thread of
// it may still be at work. False: the system refuses.
bool keepLoaded(const void* anchor);

}  // namespace base
