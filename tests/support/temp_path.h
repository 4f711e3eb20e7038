#pragma once
// What tests ask of the system, the same on every one.

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>

namespace test_support {

inline int processId() {
#if defined(_WIN32)
  return ::_getpid();
#else
  return ::getpid();
#endif
}

// A path of this process's own for temporary files; nothing stands there yet.
inline std::filesystem::path tempPath(const std::string& name) {
  return std::filesystem::temp_directory_path() / (name + "_" + std::to_string(processId()));
}

// With all it holds. A system may let go of an ended program's folder a moment late.
inline void removeFolder(const std::filesystem::path& folder) {
  std::error_code refused;
  for (int tries = 0; tries < 100; ++tries) {
    std::filesystem::remove_all(folder, refused);
    if (!refused) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  throw std::filesystem::filesystem_error("cannot remove", folder, refused);
}

// For the whole process and the programs that it starts. An empty value: not set where the system has no
// empty ones.
inline void setEnvironment(const char* name, const std::filesystem::path& value) {
#if defined(_WIN32)
  ::_wputenv_s(std::filesystem::path(name).c_str(), value.c_str());
#else
  ::setenv(name, value.c_str(), 1);
#endif
}

// For the whole process; `zone` as in the environment variable TZ.
inline void setTimeZone(const char* zone) {
  setEnvironment("TZ", zone);
#if defined(_WIN32)
  ::_tzset();
#else
  ::tzset();
#endif
}

}  // namespace test_support
