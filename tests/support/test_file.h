#pragma once
// Files that stand beside the tests.

#include <filesystem>
#include <string>

#include "base/files.h"

namespace test_support {

// The bytes of a file by its path in tests/, "engine/sample.dxf"; throws when there is none.
inline std::string testFile(const std::string& path) {
  return base::readFile(std::filesystem::path(KIV_TESTS_FOLDER) / path).value();
}

}  // namespace test_support
