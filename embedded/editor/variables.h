#pragma once
// Reading and setting system variables.

#include <optional>

#include "base/result.h"
#include "embedded/editor/variable_table.h"

namespace cad {

// By the variable's own type: an integer, a real or a text.
Variable readVariable(const SystemVariable& variable, HostState& state);
// Refused: read-only, another type, outside the limits, a name that the drawing does not have, a variable
// that the drawing's version cannot keep. Setting the value that is there already changes nothing.
base::Status setVariable(const SystemVariable& variable, const Variable& value, HostState& state);

}  // namespace cad
