// Setting of the drawing's dimension variables.

#include "adscodes.h"
#include "engine/dimension_value.h"
#include "engine/host_variables.h"
#include "engine/resource_stages.h"
#include "spec/cvt_lines.h"

namespace kiv {
namespace {

constexpr std::size_t kLongestText = 255;

// The host takes a variable's own type only, and the catalogue's is another one for a few.
bool setNumber(const wchar_t* name, short catalogueType, double value) {
  if (setNumberVariable(name, catalogueType, value)) return true;
  const short hostType = variableType(name);
  return hostType != catalogueType && setNumberVariable(name, hostType, value);
}

bool setVariable(const DimensionVariable& variable, const std::wstring& text) {
  const auto value = dimensionValue(variable, text);
  if (!value) return false;
  if (const auto* name = std::get_if<std::wstring>(&*value))
    return setTextVariable(variable.name, name->substr(0, kLongestText));
  const bool isInteger = variable.type == DimensionVariable::Type::kInteger;
  return setNumber(variable.name, isInteger ? RTSHORT : RTREAL, std::get<double>(*value));
}

// The host itself does not say why.
RefusalReason reasonOf(const DimensionVariable& variable, const std::wstring& text) {
  if (variableType(variable.name) == RTNONE) return RefusalReason::kNotInThisVersion;
  const bool isName = namesRecord(variable.name) && dimensionValue(variable, text);
  return isName ? RefusalReason::kNoSuchName : RefusalReason::kBadValue;
}

}  // namespace

void setDimensionVariables(RunState& run) {
  for (const std::wstring& entry : run.list(kDimensionVariableList)) {
    const auto assignment = splitAssignment(entry);
    const int row = assignment ? findDimensionVariable(assignment->key) : -1;
    if (row < 0) continue;
    const DimensionVariable& variable = dimensionCatalogue()[static_cast<std::size_t>(row)];
    if (setVariable(variable, assignment->value)) continue;
    const RefusalReason reason = reasonOf(variable, assignment->value);
    run.problems.addNote(assignment->key, assignment->value, reason, kOfTheDrawing);
  }
}

}  // namespace kiv
