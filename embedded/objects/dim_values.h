#pragma once
// Dimension variables of a dimension, a leader or a dimension style.

#include <optional>
#include <string>
#include <string_view>

#include "dbmain.h"
#include "embedded/drawing/dim_variables.h"

namespace cad {

std::int64_t dimInteger(const AcDbObject& object, const DimVariableInfo& info);
double dimReal(const AcDbObject& object, const DimVariableInfo& info);
std::wstring dimText(const AcDbObject& object, const DimVariableInfo& info);
const ACHAR* dimKeptText(const AcDbObject& object, const DimVariableInfo& info);
AcDbObjectId dimId(const AcDbObject& object, const DimVariableInfo& info);
AcCmColor dimColor(const AcDbObject& object, const DimVariableInfo& info);

Acad::ErrorStatus setDimInteger(AcDbObject& object, const DimVariableInfo& info, std::int64_t value);
Acad::ErrorStatus setDimReal(AcDbObject& object, const DimVariableInfo& info, double value);
Acad::ErrorStatus setDimText(AcDbObject& object, const DimVariableInfo& info, const ACHAR* value);
Acad::ErrorStatus setDimId(AcDbObject& object, const DimVariableInfo& info, AcDbObjectId value);
Acad::ErrorStatus setDimName(AcDbObject& object, const DimVariableInfo& info, const ACHAR* name);
Acad::ErrorStatus setDimColor(AcDbObject& object, const DimVariableInfo& info, const AcCmColor& value);

}  // namespace cad
