#pragma once
// Folders that appear with their files in them.

#include <filesystem>
#include <vector>

#include "base/result.h"

namespace base {

// Makes the folder with copies of `files`; it appears at once and whole, or not at all. A file that cannot be
// read is left out and is the failure, the folder is made all the same. A folder that is there already stays
// as it is, which is no failure. The parent must exist.
Status createFolderWith(const std::filesystem::path& folder, const std::vector<std::filesystem::path>& files);

}  // namespace base
