#pragma once
// Dimension variables of one dimension or leader, by their row in the catalogue.

#include <optional>

#include "dbmain.h"
#include "engine/dimension_value.h"
#include "engine/host_access.h"

namespace kiv {

// Overrides included. Nothing: no such variable on this entity.
std::optional<DimensionValue> dimensionVariable(const AcDbEntity& entity, bool isLeader, int row,
                                                SymbolNames& names);

// Makes an override of the dimension; a built-in arrow that the drawing does not have is
// made by the host. eInvalidInput: there is no value; eNotThatKindOfClass: a variable that
// dimensions do not have; and what the host refuses with.
Acad::ErrorStatus setDimensionVariable(AcDbEntity& dimension, int row,
                                       const std::optional<DimensionValue>& value);

}  // namespace kiv
