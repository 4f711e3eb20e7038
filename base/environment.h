#pragma once
// The environment of the process.

#include <filesystem>
#include <optional>

namespace base {

// A variable's value; nothing when it is not set. Names heed case where the system's do. The value is given
// as a path, which holds any text of the environment unchanged.
std::optional<std::filesystem::path> environmentVariable(const std::filesystem::path& name);

}  // namespace base
