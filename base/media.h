#pragma once
// What kind of medium a file lies on.

#include <filesystem>

namespace base {

// By the type of the drive, or of the file system where drives have none. False also when that cannot be
// told.
bool isOnCompactDisc(const std::filesystem::path& path);

}  // namespace base
