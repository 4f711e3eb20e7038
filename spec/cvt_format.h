#pragma once
// A specification file in the form in which the editor saves it.

#include <filesystem>

#include "base/result.h"
#include "spec/cvt_diagnostics.h"
#include "spec/specification.h"

namespace kiv {

struct FormattedCvt {
  Specification specification;  // what is to be saved
  bool isInForm = false;        // the file is byte for byte what saving makes of it
  CvtDiagnostics lost;          // lines that saving does not keep, by line
};

// `drop`: settings without results may go; they change nothing, but what is saved of one would run on into
// the next. Failures: those of reading; a file that is no specification, or that read again after saving
// would not be the same.
base::Result<FormattedCvt> formatCvtFile(const std::filesystem::path& file, bool drop);

}  // namespace kiv
