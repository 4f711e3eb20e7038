#pragma once
// What became of a whole batch, as a file for people (HTML, one page without references to anything outside)
// or for programs (JSON).

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/result.h"
#include "cli/reports/drawing_report.h"
#include "cli/reports/setting_totals.h"

namespace kivcli {

class BatchReport {
 public:
  // `specification` as the user named it; `begun`: a date and time for a person.
  BatchReport(std::wstring specification, std::wstring begun, bool isDryRun);

  // What each picture may take so that those of so many drawings have room, within limits.
  static std::size_t pictureShare(std::size_t drawings);

  // In the order in which reports show them. From the first drawing on whose pictures have no room, pictures
  // are left out, and the report says so.
  void add(DrawingReport report);
  bool takesPictures() const { return firstWithout_.empty(); }
  void noteOptions(std::vector<std::wstring> options) { options_ = std::move(options); }
  // What the CVT file leaves undone, and its lines that are dropped or warned of.
  void noteSpecification(const std::vector<std::wstring>& lines) {
    specificationProblems_.insert(specificationProblems_.end(), lines.begin(), lines.end());
  }
  void noteSkipped(std::size_t drawings) { skipped_ = drawings; }
  void noteInterrupted(std::size_t notBegun) { notBegun_ = notBegun; }  // drawings, which are not here

  // HTML or JSON, by the name's extension (isReportName()). Atomic.
  base::Status write(const std::wstring& file) const;
  std::string html() const;
  std::string json() const;

 private:
  std::wstring specification_, begun_;
  std::vector<std::wstring> options_, specificationProblems_;
  bool isDryRun_;
  std::optional<std::size_t> notBegun_;  // of an interrupted batch
  std::vector<DrawingReport> drawings_;
  SettingSums settings_;
  std::wstring firstWithout_;  // drawing whose pictures had no room
  std::size_t pictureBytes_ = 0, skipped_ = 0;
};

bool isReportName(const std::wstring& file);  // ends in .html, .htm or .json, in any case
bool isPageName(const std::wstring& file);    // ends in .html or .htm

}  // namespace kivcli
