#pragma once
// Dimension variables of one dimension or leader, by their row in the catalogue.

#include <optional>
#include <string>

#include "dbmain.h"
#include "engine/dimension_value.h"
#include "engine/symbol_names.h"

namespace kiv {

// Overrides included. Nothing: no such variable on this entity.
std::optional<DimensionValue> dimensionVariable(const AcDbEntity& entity, bool isLeader, int row,
                                                SymbolNames& names);

// Does a condition's value equal what was read? A text that is no value of the variable equals nothing.
bool equalsDimensionValue(const DimensionValue& value, int row, const std::wstring& text);

// Makes an override of the dimension from a value text; a built-in arrow that the drawing does not have is
// made by the host. eInvalidInput: the text is no value of the variable; eNotThatKindOfClass: a variable that
// dimensions do not have; and what the host refuses with.
Acad::ErrorStatus setDimensionVariable(AcDbEntity& dimension, int row, const std::wstring& text);

}  // namespace kiv
