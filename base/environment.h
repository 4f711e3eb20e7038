#pragma once
// The environment of the process.

#include <filesystem>
#include <optional>
#include <string>

namespace base {

// A variable's value; nothing when it is not set. Names heed case where the system's do. The value is given
// as a path, which holds any text of the environment unchanged.
std::optional<std::filesystem::path> environmentVariable(const std::filesystem::path& name);

// What the system talks to its user in, as "ja-JP"; empty where only the environment says so.
std::wstring userInterfaceLanguage();

}  // namespace base
