#pragma once
// Failures of files in words that a person can act on.

#include <filesystem>
#include <string>

#include "base/result.h"

namespace base {

// The reason is the kind's sentence, and the detail behind it.
Failure fileFailure(const std::filesystem::path& path, FailureKind kind, const std::wstring& detail = {});

// `error` is an errno value.
Failure fileFailure(const std::filesystem::path& path, int error);

}  // namespace base
