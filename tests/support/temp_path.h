#pragma once
// What tests ask of the system, the same on every one.

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

#include <ctime>

#include <cstdlib>
#include <filesystem>
#include <string>

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

// For the whole process; `zone` as in the environment variable TZ.
inline void setTimeZone(const char* zone) {
#if defined(_WIN32)
  ::_putenv_s("TZ", zone);
  ::_tzset();
#else
  ::setenv("TZ", zone, 1);
  ::tzset();
#endif
}

}  // namespace test_support
