#pragma once
// Changes of what entities have changed most often, put between bits that are copied.

#include <optional>

#include "embedded/dwg/entity_head.h"

namespace cad::dwg {

// What rewrite() makes of them, when all of them are layer, linetype, linetype scale, lineweight,
// invisibility, a colour by its number, or the height of a text. nullopt: another one is among them, or one
// that does not fit. `head` is the entity's, and intact.
std::optional<WrittenObject> changeEntity(const ObjectFrame& frame, const EntityHead& head,
                                          const FieldChanges& changes);

}  // namespace cad::dwg
