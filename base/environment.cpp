#include "base/environment.h"

#include <cstdlib>

namespace base {

std::optional<std::filesystem::path> environmentVariable(const std::filesystem::path& name) {
#if defined(_WIN32)
  const wchar_t* value = ::_wgetenv(name.c_str());
#else
  const char* value = std::getenv(name.c_str());
#endif
  return value == nullptr ? std::nullopt : std::optional<std::filesystem::path>(value);
}

}  // namespace base
