#pragma once
// The list of dimension-variable overrides in the extended data of a dimension or leader: "DSTYLE", a brace,
// pairs of a number and a value, a brace.

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/dimension_variables.h"
#include "embedded/dwg/application_data.h"

namespace cad::dwg {

struct DimPair {
  int number = 0;
  ExtendedValue value;
};

struct DimList {
  bool hasData = false;                       // the application has values here
  std::vector<ExtendedValue> before, behind;  // what it has around the list
  std::vector<ExtendedValue> head;            // its name and brace as they came; none: it is new
  std::vector<DimPair> pairs;

  const DimPair* find(const base::DimVariableInfo& info) const;
  std::vector<ExtendedValue> values(const DwgStorage& storage) const;  // all of the application's
};

// Fails when the application's values cannot be read; a list that is not closed is none.
base::Result<DimList> readDimList(const DwgStorage& storage, const Record& record);

bool takesDimOverrides(std::string_view type);

}  // namespace cad::dwg
