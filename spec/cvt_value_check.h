#pragma once
// What a conversion makes of a value text that is no value of its kind: numbers are read as far as they go,
// and what is no number counts as 0.

#include <optional>
#include <string>

#include "spec/cvt_diagnostics.h"

namespace kiv {

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

}  // namespace kiv
