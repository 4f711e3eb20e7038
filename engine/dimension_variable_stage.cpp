// Setting of the drawing's dimension variables.

#include <algorithm>

#include "adscodes.h"
#include "base/fold.h"
#include "engine/dimension_value.h"
#include "engine/host_variables.h"
#include "engine/resource_stages.h"

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

// The later one of "," and "=" separates.
std::size_t separatorOf(const std::wstring& entry) {
  const std::size_t comma = entry.find(L',');
  const std::size_t equal = entry.find(L'=');
  if (comma == std::wstring::npos || equal == std::wstring::npos) return std::min(comma, equal);
  return std::max(comma, equal);
}

}  // namespace

void setDimensionVariables(RunState& run) {
  for (const std::wstring& entry : run.list(kDimensionVariableList)) {
    const std::size_t separator = separatorOf(entry);
    if (separator == std::wstring::npos || separator == 0) continue;
    const std::wstring name(base::trim(std::wstring_view(entry).substr(0, separator)));
    const std::wstring value(base::trim(std::wstring_view(entry).substr(separator + 1)));
    const int row = findDimensionVariable(name);
    if (row < 0) continue;
    if (!setVariable(dimensionCatalogue()[static_cast<std::size_t>(row)], value)) {
      run.problems.addNote(name, value, RefusalReason::kOther, 1);
    }
  }
}

}  // namespace kiv
