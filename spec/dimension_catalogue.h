#pragma once
// The dimension variables that a specification can name, in the order in which they are offered. Editor,
// reader and conversion run go by the types that they have here, not by the host's own notion of the
// variable.

#include <span>
#include <string_view>

#include "base/dimension_variables.h"

namespace kiv {

struct DimensionVariable {
  const base::DimVariableInfo* info = nullptr;
  wchar_t name[16] = {};                 // upper case
  const wchar_t* description = nullptr;  // one Japanese sentence: what the variable controls

  bool isInteger() const { return info->offer == base::DimOffer::kAsInteger; }
  bool isReal() const { return info->offer == base::DimOffer::kAsReal; }
  bool isArrow() const { return info->type == base::DimType::kArrow; }
  // The value is the name of a record of the drawing: an arrow block or a text style.
  bool namesRecord() const { return info->isName(); }
  // The value is a text that dimensions show.
  bool isDrawnText() const {
    return info->type == base::DimType::kText || info->type == base::DimType::kCharacter;
  }
};

// 66 rows, "DIMADEC" to "DIMZIN".
std::span<const DimensionVariable> dimensionCatalogue();
const DimensionVariable& dimensionCatalogueRow(int row);

// The row with this name, ignoring case; -1: unknown.
int findDimensionVariable(std::wstring_view name);

}  // namespace kiv
