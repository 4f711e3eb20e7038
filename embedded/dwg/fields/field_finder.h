#pragma once
// Reads one field of an object, by the description of its class.

#include <optional>

#include "embedded/dwg/fields/object_frame.h"

namespace cad::dwg {

struct FoundField {
  BitType type = BitType::kB;
  Stream stream = Stream::kData;
  std::uint32_t begin = 0, end = 0;  // as of Field
  Value value;                       // monostate: the object has no such field
};

// The first field of the name that the class has of its own, of one part. `dataAt` and `handlesAt`: where the
// fields that all objects have end. nullopt: the object is damaged before that field.
std::optional<FoundField> findOwnField(const ObjectFrame& frame, std::uint32_t dataAt,
                                       std::uint32_t handlesAt, std::string_view name);

}  // namespace cad::dwg
