#pragma once
// Warnings of rule lines that are understood, but probably do not do what their author meant.

#include <optional>
#include <string>
#include <string_view>
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
  std::wstring given_;     // the value as it is read
  bool hasEquals_ = true;  // false: "<>" comes first
};

// A colour that layers have: their index number, nothing that refers to a layer or block.
bool isLayerColor(int number);

// What a dimension variable makes of a value text (in the file's own case), as the detail of a diagnostic.
struct VariableDoubt {
  CvtProblem problem;
  std::wstring readAs;
};
// Nothing: what is written. A condition does not mind the case of texts.
std::optional<VariableDoubt> doubtOfVariable(std::wstring_view variable, const std::wstring& text,
                                             bool asCondition);

}  // namespace kiv
