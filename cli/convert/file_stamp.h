#pragma once
// By what one tells that a file is no longer the one that it was.

#include <cstdint>
#include <filesystem>

namespace kivcli {

// Changes when another file takes the place of this one, or somebody writes to it.
struct FileStamp {
  std::filesystem::file_time_type modified{};
  std::uintmax_t size = 0;
  bool operator==(const FileStamp&) const = default;
};

// All zero where there is no file.
FileStamp stampOf(const std::filesystem::path& file);

}  // namespace kivcli
