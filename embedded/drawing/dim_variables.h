#pragma once
// The dimension variables as the store keeps them.

#include "base/dimension_variables.h"
#include "embedded/drawing/record.h"

namespace cad {

using base::dimRow;
using base::DimType;
using base::DimVariableInfo;
using base::findDimVariable;
using base::kDimVariables;

// Where the name that is a variable's value stands; kNone: the value is no name.
constexpr Table tableOf(DimType type) {
  switch (type) {
    case DimType::kTextStyle:
      return Table::kTextStyle;
    case DimType::kArrow:
      return Table::kBlock;
    case DimType::kLinetype:
      return Table::kLinetype;
    default:
      return Table::kNone;
  }
}

}  // namespace cad
