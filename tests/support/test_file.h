#pragma once
// Files that stand beside the tests.

#include <string>

namespace test_support {

// The bytes of a file by its path in tests/, "engine/sample.dxf"; throws when there is none.
std::string testFile(const std::string& path);

}  // namespace test_support
