#pragma once
// What a drawing is saved as.

#include <unistd.h>
#include <filesystem>
#include <string>
#include <utility>

#include "base/files.h"
#include "embedded/drawing/drawing.h"
#include "fuzz/require.h"

namespace fuzz {

// In memory where the system has such a folder.
inline std::filesystem::path scratchPath(const std::string& name) {
  const std::filesystem::path shared = "/dev/shm";
  const auto folder = std::filesystem::is_directory(shared) ? shared : std::filesystem::temp_directory_path();
  return folder / ("kiv-" + std::to_string(getpid()) + name);
}

inline std::string savedBytes(cad::Drawing& drawing) {
  static const std::filesystem::path path = scratchPath(".drawing");
  require(drawing.save(path).ok());
  auto saved = base::readFile(path);
  std::filesystem::remove(path);
  require(saved.ok());
  return std::move(saved.value());
}

}  // namespace fuzz
