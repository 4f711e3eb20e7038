#pragma once
// What is said at the end of a conversion.

#include <optional>
#include <string>
#include <vector>

#include "cli/reports/setting_totals.h"

namespace kivcli {

class Summary {
 public:
  // `skipped`: drawings that an earlier run has converted, which are not added.
  Summary(bool isDryRun, std::size_t skipped) : isDryRun_(isDryRun), skipped_(skipped) {}

  void add(const DrawingReport& report);

  // How much each setting changed; of a batch of which nobody sees the beginning any more the problems once
  // again; and how many drawings were converted, the last line. `columns` of a terminal cut the others.
  std::vector<std::wstring> lines(std::optional<std::size_t> columns) const;
  int exitStatus() const;

 private:
  std::size_t all() const { return converted_ + withProblems_ + failed_; }
  void addSettings(std::vector<std::wstring>& lines) const;
  void addProblems(std::vector<std::wstring>& lines) const;
  std::wstring lastLine() const;
  std::wstring lastLineOfDryRun() const;

  bool isDryRun_;
  std::size_t skipped_, converted_ = 0, withProblems_ = 0, failed_ = 0, changing_ = 0;
  SettingSums settings_;
  std::vector<std::wstring> problems_;  // the first of each drawing that has some, as far as they are shown
};

}  // namespace kivcli
