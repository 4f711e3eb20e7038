#pragma once
// Where each typed property stands in a DXF record.

#include <string_view>

#include "embedded/drawing/storage.h"
#include "embedded/dxf/record_regions.h"

namespace cad::dxf {

struct PropertyPlace {
  Property property = Property::kCount;
  int code = 0;
  // Subclasses that the group counts in, separated by '|'; empty: anywhere outside of application groups,
  // embedded objects and extended data. Before the first marker it counts always.
  std::string_view subclass;
  Version since = Version::kR12;
};

// Null when records of this kind and type do not have the property.
const PropertyPlace* findPlace(RecordKind kind, std::string_view type, Property property);
// The same for properties that entities of every type have; null for others.
const PropertyPlace* findCommonPlace(RecordKind kind, Property property);
// From which version on entities have a group, of those that every entity may have.
Version commonSince(int code);

// Of several groups the last, which is what readers take. `straying`: what every entity has may stand behind
// AcDbEntity too.
Located locate(std::string_view bytes, const Dialect& dialect, const PropertyPlace& place, bool straying);

bool isCommon(const PropertyPlace& place);  // a property of every entity
bool isMText(std::string_view type);
// The columns that may follow the text of an MTEXT use its group codes again.
inline constexpr int kMTextColumns = 75;

}  // namespace cad::dxf
