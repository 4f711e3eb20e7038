#pragma once
// The system's error numbers in words that a person can act on.

#include <filesystem>

#include "base/result.h"

namespace base {

// `error` is an errno value.
Failure fileFailure(const std::filesystem::path& path, int error);

}  // namespace base
