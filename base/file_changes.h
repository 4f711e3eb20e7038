#pragma once
// What changes a folder: a folder made, a file removed.

#include <filesystem>
#include <vector>

#include "base/result.h"

namespace base {

// Makes the folder with copies of `files`; it appears at once and whole, or not at all. A file that cannot be
// read is left out and is the failure, the folder is made all the same. A folder that is there already stays
// as it is, which is no failure. The parent must exist.
Status createFolderWith(const std::filesystem::path& folder, const std::vector<std::filesystem::path>& files);

// A file that is not there any more counts as removed; a write-protected one and a folder are refused.
Status removeFile(const std::filesystem::path& path);

}  // namespace base
