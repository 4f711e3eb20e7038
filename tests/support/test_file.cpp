#include "tests/support/test_file.h"

#include "base/files.h"

std::string test_support::testFile(const std::string& path) {
  return base::readFile(std::filesystem::path(KIV_TESTS_FOLDER) / path).value();
}
