#pragma once
// Which subclass marker each group of a plain entity stands under, for records of files that have none.

#include <string_view>
#include <vector>

#include "embedded/dxf/record_tools.h"

namespace cad::dxf {

struct SubclassPart {
  std::string_view marker;
  std::vector<int> codes;  // of its groups; empty: all that no other part names
};

// `flags` is the value of group 70. Empty for SEQEND and for types that have no parts of their own.
std::vector<SubclassPart> subclassParts(std::string_view type, std::int64_t flags);

}  // namespace cad::dxf
