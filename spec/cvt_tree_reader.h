#pragma once
// Loading a specification for editing.

#include <filesystem>

#include "spec/cvt_diagnostics.h"
#include "spec/specification.h"

namespace kiv {

struct TreeLoad {
  Specification
      specification;    // ten empty sections when the file cannot be read; the file name is set all the same
  bool isRead = false;  // the file is there and can be read
  bool isSpecification = false;  // it has at least one of the ten sections, though all may be empty
  int linesExamined = 0;         // inside sections, their end markers not counted
  CvtDiagnostics diagnostics;
};

TreeLoad loadSpecification(const std::filesystem::path& folder, std::wstring_view fileName);

}  // namespace kiv
