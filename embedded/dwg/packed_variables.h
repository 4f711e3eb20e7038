#pragma once
// Variables of the header that share one field since R2000.

#include <optional>
#include <string_view>
#include <vector>

#include "embedded/drawing/storage.h"
#include "embedded/dwg/fields/header_fields.h"

namespace cad::dwg {

// Absent: no such variable, or no such field.
std::optional<Variable> packedVariable(const Fields& header, std::string_view name);
std::vector<std::string_view> packedVariables(const Fields& header);
// False: the variable cannot have this value.
bool setPackedVariable(const Fields& header, std::string_view name, std::int64_t value,
                       FieldChanges& changes);

}  // namespace cad::dwg
