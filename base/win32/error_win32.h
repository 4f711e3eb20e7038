#pragma once
// The system's error codes in words that a person can act on.

#include <filesystem>

#include "base/result.h"

namespace base {

// `error` is a GetLastError() code.
Failure systemFailure(const std::filesystem::path& path, unsigned long error);

}  // namespace base
