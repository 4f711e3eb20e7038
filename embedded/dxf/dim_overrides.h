#pragma once
// The list of dimension-variable overrides in the extended data of a dimension or leader:
// 1001 ACAD, 1000 DSTYLE, 1002 {, pairs of 1070 and a value, 1002 }.

#include <cstdint>
#include <vector>

#include "embedded/dxf/record_tools.h"

namespace cad::dxf {

struct DimOverride {
  int number = 0;
  const Group* value = nullptr;
  std::uint32_t begin = 0, end = 0;  // both groups of the pair
};

// Where things stand, as offsets in the record; the groups must outlive it.
struct DimOverrides {
  bool hasApp = false, hasList = false;
  bool listAlone = false;                    // nothing but the list belongs to the application
  std::uint32_t appBegin = 0, appEnd = 0;    // from 1001 ACAD to the next application's 1001
  std::uint32_t listBegin = 0, listEnd = 0;  // from 1000 DSTYLE behind 1002 }
  std::uint32_t listClose = 0;               // 1002 }
  std::uint32_t newList = 0;                 // where a list is read back: before one that is not closed
  std::vector<DimOverride> pairs;
};

DimOverrides readDimOverrides(const RecordGroups& groups, const DxfStorage& storage);

}  // namespace cad::dxf
