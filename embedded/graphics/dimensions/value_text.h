#pragma once
// What is written at a dimension: the measured value as its variables have it, or a person's text.

#include <string>
#include <string_view>

#include "base/drawing_version.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/geometry.h"

namespace cad {

// What a value's text depends on besides the variables.
struct ValuePlace {
  bool inPaperSpace = false;  // a DIMLFAC below 0 counts there only
  // Of the drawing: before R2000 DIMUNIT is what DIMLUNIT and DIMFRAC are later, and DIMDEC also gives the
  // places of angles.
  base::Version version = base::Version::kUnknown;
};

// As multiline text with formatting codes; empty: no text is drawn. `measured` is drawing units, or radians
// of the angular kinds, before DIMLFAC and rounding. `contents` is DimensionGeometry::contents.
std::wstring dimensionText(DimensionGeometry::Kind kind, double measured, std::wstring_view contents,
                           const DimVariables& variables, const ValuePlace& place = {});

}  // namespace cad
