#pragma once
// The dimension variables as the store keeps them.

#include <array>
#include <string>

#include "base/dimension_variables.h"
#include "embedded/drawing/record.h"
#include "embedded/drawing/storage.h"

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

// The host's default of a variable.
Variable defaultValue(const DimVariableInfo& info);

// The values of all variables that hold for an object: its overrides, else its style's values, else the
// defaults.
class DimVariables {
 public:
  DimVariables();  // the defaults
  // kNoRecord: the defaults.
  static DimVariables ofStyle(const Drawing& drawing, RecordId style);
  // Takes what the record itself has, in the state that it gives.
  void takeOwn(const Drawing& drawing, const Record& record);

  const Variable& value(const DimVariableInfo& info) const { return values_[info.row]; }
  // Of the variable's own type; a value of another one counts as the default.
  std::int64_t integer(const DimVariableInfo& info) const;
  double real(const DimVariableInfo& info) const;
  const std::wstring& text(const DimVariableInfo& info) const;  // of names as well
  void set(const DimVariableInfo& info, Variable value) { values_[info.row] = std::move(value); }

 private:
  std::array<Variable, kDimVariables.size()> values_;
};

}  // namespace cad
