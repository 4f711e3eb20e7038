#pragma once
// Puts values between the bits of an entity that are copied.

#include "embedded/dwg/entity_values.h"

namespace cad::dwg {

// The values by the names of their fields.
FieldChanges asFields(const EntityValues& values, Version version);

// Whether every plain entity (kPlainEntity) of the version can have the values, and whether this one can. The
// height, which is a text's, must tell where it stands.
bool fit(const EntityValues& values, Version version);
bool fit(const EntityValues& values, Version version, const EntityHead& head);

// What rewrite() makes of the values, which must fit; one that is there already keeps its bits. `head` is the
// entity's, and intact. The memory of `room` is used again.
WrittenObject changeEntity(const ObjectFrame& frame, const EntityHead& head, const EntityValues& values,
                           std::string room = {});

}  // namespace cad::dwg
