#pragma once
// Reading and setting system variables.

#include <optional>

#include "base/result.h"
#include "embedded/editor/variable_table.h"

namespace cad {

class Drawing;

// By the variable's own type: an integer, a real or a text.
Variable readVariable(const SystemVariable& variable, HostState& state);
// Refused: read-only, another type, outside the limits, a name that the drawing does not have, a variable
// that the drawing's version cannot keep. Setting the value that is there already changes nothing.
base::Status setVariable(const SystemVariable& variable, const Variable& value, HostState& state);

// The value as the header keeps it; refused when it is not one.
base::Result<Variable> headerForm(const SystemVariable& variable, const std::wstring& text, Drawing& drawing);
std::wstring shownForm(const SystemVariable& variable, const Variable& header);

}  // namespace cad
