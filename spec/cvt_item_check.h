#pragma once
// Warnings of lines that are understood, but probably do not do what their author meant.

#include <optional>
#include <string>
#include <vector>

#include "spec/cvt_diagnostics.h"
#include "spec/cvt_lines.h"
#include "spec/specification.h"

namespace kiv {

// What a conversion makes of a value text that is no value of its kind: numbers are read as far as they go,
// and what is no number counts as 0.
struct GivenValue {
  int section;
  int kind;               // of items; a variable's in the list of dimension variables, too
  std::wstring variable;  // of kVariableKind
  std::wstring text;      // in the file's own case
  bool asCondition;
};

struct ValueDoubt {
  CvtProblem problem;
  std::wstring detail;
};

// Nothing: the value is what is written. Whether the section heeds the kind is not looked at.
std::optional<ValueDoubt> doubtOfValue(const GivenValue& given);

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
