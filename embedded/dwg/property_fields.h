#pragma once
// Which field of an object holds which property.

#include <cstdint>
#include <string_view>

#include "embedded/drawing/storage.h"

namespace cad::dwg {

enum class FieldForm : std::uint8_t {
  kInteger,
  kReal,
  kAngle,  // degrees of what the file has in radians
  kText,
  kReference,  // to a table's record
  kBlock,      // to a block, by its table's entry
  kEntry,      // stands in the block's table entry
  kSpecial,    // see special_properties.h; of entities what EntityValues have is set as these
};

struct PropertyField {
  Property property = Property::kCount;
  std::string_view field;
  FieldForm form = FieldForm::kSpecial;
  Version since = Version::kR13;
};

// Null when records of this kind and type do not have the property.
const PropertyField* findField(RecordKind kind, std::string_view type, Property property);

}  // namespace cad::dwg
