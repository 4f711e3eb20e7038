#pragma once
// What is drawn of an entity, as the values of its fields.

#include "embedded/drawing/block_entity.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {

// The kind of object that shows the geometry, whose values are added; absent: entities of the type consist of
// something else, or the version does not have them.
std::optional<ObjectKind> addGeometry(const DwgStorage& storage, std::string_view type,
                                      const Geometry& geometry, FieldChanges& values);

// Both are set, whatever they were: what the host itself draws is of a type that every version has.
void addShape(const Shape& shape, Geometry& geometry, std::string_view& type);

}  // namespace cad::dwg
