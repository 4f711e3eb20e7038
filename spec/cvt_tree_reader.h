#pragma once
// Loading a specification for editing.

#include <filesystem>

#include "spec/cvt_diagnostics.h"
#include "spec/specification.h"

namespace kiv {

struct TreeLoad {
  Specification
      specification;  // ten empty sections when the file cannot be read; the file name is set all the same
  int linesExamined = 0;  // inside sections; 0 when the file cannot be read or has no known section
  CvtDiagnostics diagnostics;
};

TreeLoad loadSpecification(const std::filesystem::path& folder, std::wstring_view fileName);

}  // namespace kiv
