#pragma once
// What is needed of an entity before anybody asks: where it belongs, and what selections look for.

#include <cstdint>

#include "embedded/drawing/record.h"
#include "embedded/dwg/fields/object_fields.h"

namespace cad::dwg {

// How an entity names its linetype.
enum class LinetypeKind : std::uint8_t { kByLayer, kByBlock, kContinuous, kNamed };

// Where an entity stands.
enum class EntityMode : std::uint8_t { kOwned, kPaperSpace, kModelSpace };

struct EntityHead {
  EntityMode mode = EntityMode::kOwned;
  LinetypeKind linetypeKind = LinetypeKind::kByLayer;
  std::int16_t color = 256;
  Handle owner = 0;  // of an owned one
  Handle next = 0;   // the entity behind it in its block; until R2000
  Handle layer = 0, linetype = 0;
  Handle style = 0;  // of texts
};

EntityHead readEntityHead(const ObjectFrame& frame);
LinetypeKind linetypeKindOf(const Fields& entity);
std::string_view linetypeName(LinetypeKind kind);  // of a named one: ByLayer
bool hasTextStyle(ObjectKind kind);                // it is the first reference of the class's own

}  // namespace cad::dwg
