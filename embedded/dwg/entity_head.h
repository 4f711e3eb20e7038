#pragma once
// What is asked of entities most: where they belong, what selections look for, and where in their bits it
// stands.

#include <cstdint>
#include <optional>
#include <string_view>

#include "embedded/drawing/record.h"
#include "embedded/dwg/fields/object_fields.h"

namespace cad::dwg {

// How an entity names its linetype.
enum class LinetypeKind : std::uint8_t { kByLayer, kByBlock, kContinuous, kNamed };

// Where an entity stands.
enum class EntityMode : std::uint8_t { kOwned, kPaperSpace, kModelSpace };

// In bits from the beginning of the object's data. Of what is not there: empty, where it would stand.
struct BitSpan {
  std::uint32_t begin = 0, end = 0;
  bool operator==(const BitSpan&) const = default;
};

struct EntityHead {
  EntityMode mode = EntityMode::kOwned;
  LinetypeKind linetypeKind = LinetypeKind::kByLayer;
  std::int16_t color = 256;
  Handle owner = 0;  // of an owned one
  Handle next = 0;   // the entity behind it in its block; until R2000
  Handle layer = 0, linetype = 0;
  Handle style = 0;  // of texts

  // The rest is only told of an entity that holds together.
  bool intact = false;
  bool plainColor = false;  // the colour is nothing but its number
  std::int16_t invisible = 0;
  std::uint8_t lineWeight = 29;  // as it is stored; from R2000 on
  double linetypeScale = 1;
  HandleReference layerReference, linetypeReference;
  BitSpan sizeAt;  // the size in bits before R2010
  BitSpan colorAt, scaleAt, linetypeFlagsAt, invisibleAt, lineWeightAt, layerAt, linetypeAt;
  std::uint32_t dataEnd = 0, handlesEnd = 0;  // of what every entity has
};

EntityHead readEntityHead(const ObjectFrame& frame);
LinetypeKind linetypeKindOf(const Fields& entity);
std::string_view linetypeName(LinetypeKind kind);  // of a named one: ByLayer
bool hasTextStyle(ObjectKind kind);                // it is the first reference of the class's own
// A field among the first of the class's own references; nullopt: it is none of these, or not there.
std::optional<HandleReference> ownReference(const ObjectFrame& frame, const EntityHead& head,
                                            std::string_view field);

}  // namespace cad::dwg
