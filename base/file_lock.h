#pragma once
// One holder at a time, among all threads of all processes that lock the same file.

#include <filesystem>
#include <memory>

#include "base/result.h"

namespace base {

class FileLock {
 public:
  // Makes the file when it is missing and waits until nobody else holds it. The file stays, empty: one that
  // was removed could be held twice. The folder must exist.
  static Result<std::unique_ptr<FileLock>> acquire(const std::filesystem::path& file);
  virtual ~FileLock() = default;  // lets go
};

}  // namespace base
