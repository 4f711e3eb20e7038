// Viewports of paper spaces.

#include <algorithm>

#include "embedded/dwg/geometry_fields.h"

namespace cad::dwg {
namespace {

// The first viewport of a space stands for the space itself.
bool isFirstOfSpace(const GeometrySource& from) {
  const std::vector<RecordId>& entities = from.drawing.entitiesOf(from.drawing.blockOf(from.id));
  const auto first =
      std::ranges::find_if(entities, [&](RecordId id) { return from.drawing.typeName(id) == "VIEWPORT"; });
  return first != entities.end() && *first == from.id;
}

}  // namespace

Geometry readViewport(const GeometrySource& from) {
  constexpr std::int64_t kOff = 0x20000, kHasBoundary = 0x10000;
  const Fields& fields = from.fields;
  ViewportGeometry shape;
  shape.centre = fields.point("center");
  shape.width = fields.real("width");
  shape.height = fields.real("height");
  shape.isSpace = isFirstOfSpace(from);
  shape.viewCentre = fields.point("view center");
  shape.direction = fields.point("view direction", {0, 0, 1});
  shape.target = fields.point("view target");
  shape.viewHeight = fields.real("view height");
  shape.twist = from.degrees("view twist");
  const std::int64_t flags = fields.integer("status flags");
  shape.on = (flags & kOff) == 0;
  if ((flags & kHasBoundary) != 0)
    shape.boundary = from.storage.recordOf(fields.handle("boundary").value_or(0));
  for (const Field& field : fields.all()) {
    const auto* reference = std::get_if<HandleReference>(&field.value);
    if (reference == nullptr || field.name != "frozen layer") continue;
    const RecordId layer = from.storage.recordOf(reference->absolute(fields.own()));
    if (layer != kNoRecord) shape.frozenLayers.push_back(layer);
  }
  return {std::move(shape)};
}

}  // namespace cad::dwg
