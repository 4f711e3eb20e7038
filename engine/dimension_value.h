#pragma once
// What a value text of a specification means for a dimension variable, in conditions, in results and for the
// drawing's own variables alike.

#include <optional>
#include <string>
#include <variant>

#include "spec/dimension_catalogue.h"

namespace kiv {

// A number (integers, switches as 0 and 1, colours by index, lineweights) or a text (prefixes, the decimal
// separator, names of styles and, in the host's spelling, of arrow blocks; "." the default arrow).
using DimensionValue = std::variant<double, std::wstring>;

// By the catalogue's type: of an integer the digits that the text begins with, of a real the number, 0 when
// there is none. Nothing: the text of an arrow variable names no block.
std::optional<DimensionValue> dimensionValue(const DimensionVariable& variable, std::wstring_view text);

}  // namespace kiv
