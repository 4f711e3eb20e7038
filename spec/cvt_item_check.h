#pragma once
// Warnings of rule lines that are understood, but probably do not do what their author meant.

#include <string>
#include <vector>

#include "spec/cvt_diagnostics.h"
#include "spec/cvt_lines.h"
#include "spec/specification.h"

namespace kiv {

// One line of one section of rules.
class CvtItemCheck {
 public:
  CvtItemCheck(int section, const Item& item, const CvtLine& line, CvtDiagnostics& diagnostics);

  // `earlier`: the conditions in front of it in the same setting.
  void checkCondition(const std::vector<Item>& earlier);
  void checkResult();

 private:
  void checkItem(bool asResult);
  bool excludes(const Item& earlier) const;
  void report(CvtProblem problem, const std::wstring& detail);

  int section_;
  const Item& item_;
  const CvtLine& line_;
  CvtDiagnostics& diagnostics_;
  RuleLine parts_;      // in the file's own case
  std::wstring given_;  // the value as it is read
};

}  // namespace kiv
