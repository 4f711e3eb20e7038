#pragma once
// The properties that refer to a record of a table.

#include "embedded/drawing/property.h"
#include "embedded/drawing/record.h"

namespace cad {

Table tableNamedBy(Property property);  // kNone for what is no reference

}  // namespace cad
