// Setting of the drawing's dimension variables.

#include "adscodes.h"
#include "engine/dimension_value.h"
#include "engine/host_access.h"
#include "engine/stages.h"
#include "spec/cvt_lines.h"

namespace kiv {
namespace {

constexpr std::size_t kLongestText = 255;

// The host takes a variable's own type only, and the catalogue's is another one for a few.
bool setNumber(const wchar_t* name, short catalogueType, double value) {
  // An integer is sent as sixteen bits, whatever it says; `check` tells what becomes of it.
  const double sent = catalogueType == RTSHORT ? static_cast<short>(static_cast<int>(value)) : value;
  if (setNumberVariable(name, catalogueType, sent)) return true;
  const short hostType = variableType(name);
  return hostType != catalogueType && setNumberVariable(name, hostType, value);
}

bool setVariable(int row, const std::wstring& text) {
  const auto value = dimensionValue(row, text);
  if (!value) return false;
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (const auto* name = std::get_if<std::wstring>(&*value))
    return setTextVariable(variable.name, name->substr(0, kLongestText));
  return setNumber(variable.name, variable.isInteger() ? RTSHORT : RTREAL, std::get<double>(*value));
}

// The host itself does not say why.
RefusalReason reasonOf(int row, const std::wstring& text) {
  const DimensionVariable& variable = dimensionCatalogueRow(row);
  if (variableType(variable.name) == RTNONE) return RefusalReason::kNotInThisVersion;
  const bool isName = variable.namesRecord() && dimensionValue(row, text);
  return isName ? RefusalReason::kNoSuchName : RefusalReason::kBadValue;
}

}  // namespace

void setDimensionVariables(RunState& run) {
  for (const std::wstring& entry : run.list(kDimensionVariableList)) {
    const auto assignment = splitAssignment(entry);
    const int row = assignment ? findDimensionVariable(assignment->key) : -1;
    if (row < 0 || setVariable(row, assignment->value)) continue;
    const RefusalReason reason = reasonOf(row, assignment->value);
    run.problems.addNote({assignment->key, assignment->value, reason, 1, Refuser::kDrawing});
  }
}

}  // namespace kiv
