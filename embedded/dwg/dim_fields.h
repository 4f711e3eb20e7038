#pragma once
// Dimension variables as fields of a dimension style, and as values of extended data.

#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/application_data.h"

namespace cad::dwg {

bool isColorVariable(const DimVariableInfo& info);
// Arrow blocks were named by text before 2000.
bool isNamedByText(Version version, const DimVariableInfo& info);

// Adds what sets the variable. Refused: a value of another type, a name of nothing. What the name stands for
// enters the file when it was only implied.
base::Status setStyleField(Drawing& drawing, const DwgStorage& storage, const DimVariableInfo& info,
                           const Variable& value, FieldChanges& changes);
// The same as a value of the list of overrides.
base::Result<ExtendedValue> overrideOf(Drawing& drawing, const DwgStorage& storage,
                                       const DimVariableInfo& info, const Variable& value);

}  // namespace cad::dwg
