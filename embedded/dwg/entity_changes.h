#pragma once
// Puts values between the bits of an entity that are copied.

#include "embedded/dwg/entity_values.h"

namespace cad::dwg {

// The values by the names of their fields.
FieldChanges asFields(const EntityValues& values, Version version);

// Whether an entity can have the values: one of the version, whose colour is plain where it holds together;
// and this one. A height, which only texts are given, must stand where it says.
bool fit(const EntityValues& values, Version version);
bool fit(const EntityValues& values, Version version, const EntityHead& head);

// What rewrite() makes of the values, which must fit; one that is there already keeps its bits. `head` is the
// entity's, and intact. The memory of `room` is used again.
WrittenObject changeEntity(const ObjectFrame& frame, const EntityHead& head, const EntityValues& values,
                           std::string room = {});

}  // namespace cad::dwg
