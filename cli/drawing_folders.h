#pragma once
// Which files of a folder are drawings.

#include <filesystem>

namespace kivcli {

// By the end of the name, of every format that can be opened.
bool hasNameOfDrawing(const std::filesystem::path& file);

}  // namespace kivcli
