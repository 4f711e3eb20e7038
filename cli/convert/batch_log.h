#pragma once
// The one log of all drawings, in the order of their list.

#include <filesystem>
#include <string>

#include "cli/reports/drawing_report.h"

namespace kivcli {

class BatchLog {
 public:
  // `folder` as the user named it; empty: no log is wanted. The file is named after this moment.
  explicit BatchLog(const std::wstring& folder);

  void add(const DrawingReport& report);
  // The first failure; empty: none.
  const std::wstring& failure() const { return failure_; }

 private:
  std::filesystem::path file_;
  std::wstring failure_;
};

}  // namespace kivcli
