#pragma once
// Failures of files in words that a person can act on.

#include <filesystem>
#include <string>
#include <system_error>

#include "base/result.h"

namespace base {

// The reason is the kind's sentence, and the detail behind it.
Failure fileFailure(const std::filesystem::path& path, FailureKind kind, const std::wstring& detail = {});

// `error` is an errno value.
Failure fileFailure(const std::filesystem::path& path, int error);

// `error` comes from std::filesystem; its own message is English, and on Windows in the system's code page.
Failure fileFailure(const std::filesystem::path& path, const std::error_code& error);

}  // namespace base
