#pragma once
// Where the running program stands: the module and its companions are found beside it.

#include <filesystem>

namespace kivcli {

// Empty when the system does not tell.
std::filesystem::path programFolder();

}  // namespace kivcli
