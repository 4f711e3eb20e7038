#pragma once
// Dimension variables of one dimension or leader, by their row in the catalogue.

#include <optional>
#include <string>
#include <variant>

#include "dbmain.h"
#include "engine/symbol_names.h"

namespace kiv {

// A number (integers, switches as 0 and 1, colours by index, lineweights) or a text (prefixes, the decimal
// separator, names of styles and of arrow blocks; "." the default arrow).
using DimensionValue = std::variant<double, std::wstring>;

// Overrides included. Nothing: no such variable on this entity.
std::optional<DimensionValue> dimensionVariable(const AcDbEntity& entity, bool isLeader, int row,
                                                SymbolNames& names);

// Does a condition's value, in the forms that results have too, equal what was read? A text that is no value
// of the variable equals nothing.
bool equalsDimensionValue(const DimensionValue& value, int row, const std::wstring& text);

// Makes an override of the dimension from a value text by the host's own type of the variable.
// eInvalidInput: the text has not the form of such a value; eNotThatKindOfClass: a variable that dimensions
// do not have; and what the host refuses with.
Acad::ErrorStatus setDimensionVariable(AcDbEntity& dimension, int row, const std::wstring& text);

}  // namespace kiv
