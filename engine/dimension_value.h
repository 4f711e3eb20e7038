#pragma once
// What a value text of a specification means for a dimension variable, in conditions, in results and for the
// drawing's own variables alike.

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "spec/dimension_catalogue.h"

namespace kiv {

// A number (integers, switches as 0 and 1, colours by index, lineweights) or a text (prefixes, the decimal
// separator, names of styles and, in the host's spelling, of arrow blocks; "." the default arrow).
using DimensionValue = std::variant<double, std::wstring>;

// The host's name of an arrow block. Specifications and dialogs spell one of the built-in arrows otherwise;
// every name that comes from them passes here before it meets the host.
std::wstring hostArrowName(std::wstring_view name);

// `row`: the variable in the catalogue. By the catalogue's type: of an integer the digits that the text
// begins with, of a real the number, 0 when there is none. Nothing: the text of an arrow variable names no
// block.
std::optional<DimensionValue> dimensionValue(int row, std::wstring_view text);

}  // namespace kiv
