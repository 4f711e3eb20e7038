#pragma once
// Dimension variables by their row in the catalogue: what a value text of a specification means for one, in
// conditions, in results and for the drawing's own variables alike, and what one dimension or leader has.

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "dbmain.h"
#include "engine/host_access.h"
#include "spec/dimension_catalogue.h"

namespace kiv {

// A number (integers, switches as 0 and 1, colours by index, lineweights) or a text (prefixes, the decimal
// separator, names of styles and, in the host's spelling, of arrow blocks; "." the default arrow).
using DimensionValue = std::variant<double, std::wstring>;

// The host's name of an arrow block. Specifications and dialogs spell one of the built-in arrows otherwise;
// every name that comes from them passes here before it meets the host.
std::wstring hostArrowName(std::wstring_view name);

// By the catalogue's type: of an integer the digits that the text begins with, of a real the number, 0 when
// there is none. Nothing: the text of an arrow variable names no block.
std::optional<DimensionValue> dimensionValue(int row, std::wstring_view text);

// Overrides included. Nothing: no such variable on this entity.
std::optional<DimensionValue> dimensionVariable(const AcDbEntity& entity, bool isLeader, int row,
                                                SymbolNames& names);

// Makes an override of the dimension; a built-in arrow that the drawing does not have is
// made by the host. eInvalidInput: there is no value; eNotThatKindOfClass: a variable that
// dimensions do not have; and what the host refuses with.
Acad::ErrorStatus setDimensionVariable(AcDbEntity& dimension, int row,
                                       const std::optional<DimensionValue>& value);

}  // namespace kiv
