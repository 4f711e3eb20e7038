// Setting of the drawing's dimension variables.

#include <algorithm>
#include <limits>

#include "base/fold.h"
#include "engine/host_variables.h"
#include "engine/resource_stages.h"
#include "engine/value_forms.h"
#include "spec/color_text.h"
#include "spec/dimension_catalogue.h"
#include "spec/leading_number.h"

namespace kiv {
namespace {

constexpr std::size_t kLongestText = 255;

bool setText(const wchar_t* name, const std::wstring& value) {
  std::wstring_view text = value;
  if (isArrowVariable(name)) {
    const auto block = blockNameOfDisplayForm(value);
    if (!block) return false;
    text = *block;
  }
  return setTextVariable(name, std::wstring(text.substr(0, kLongestText)));
}

// The host takes sixteen bits; nothing is sent that would turn into another value.
bool setInteger(const wchar_t* name, int value) {
  using Limits = std::numeric_limits<short>;
  if (value < Limits::min() || value > Limits::max()) return false;
  return setShortVariable(name, static_cast<short>(value));
}

bool setVariable(const DimensionVariable& variable, const std::wstring& value) {
  switch (variable.type) {
    case DimensionVariable::Type::kInteger:
      return setInteger(variable.name, leadingInteger(value));
    case DimensionVariable::Type::kReal:
      return setRealVariable(variable.name, leadingReal(value));
    case DimensionVariable::Type::kText:
      return setText(variable.name, value);
  }
  return false;
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
