#include "embedded/dwg/entity_head.h"

#include <algorithm>

namespace cad::dwg {
namespace {

// The reference behind those that all entities have.
Handle firstOwnReference(const ObjectFrame& frame, const Fields& common) {
  std::uint32_t at = frame.handleBegin;
  for (const Field& field : common.all())
    if (field.stream == Stream::kHandles) at = std::max(at, field.end);
  BitReader reader(frame.data, at, frame.handleEnd);
  const HandleReference reference = reader.h();
  return reader.failed() ? 0 : reference.absolute(frame.handle);
}

// Attributes may have a text of several lines since R2018, whose references come first.
Handle styleOf(const ObjectFrame& frame, const Fields& common) {
  const bool isAttribute = frame.type.kind == ObjectKind::kAttrib || frame.type.kind == ObjectKind::kAttdef;
  if (isAttribute && frame.version >= Version::kR2018) return readFields(frame).handle("style").value_or(0);
  return firstOwnReference(frame, common);
}

}  // namespace

LinetypeKind linetypeKindOf(const Fields& entity) {
  if (entity.find("linetype flags") != nullptr)
    return static_cast<LinetypeKind>(entity.integer("linetype flags") & 3);
  return entity.integer("linetype by layer", 1) != 0 ? LinetypeKind::kByLayer : LinetypeKind::kNamed;
}

std::string_view linetypeName(LinetypeKind kind) {
  constexpr std::string_view kNames[] = {"ByLayer", "ByBlock", "Continuous", "ByLayer"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool hasTextStyle(ObjectKind kind) {
  return kind == ObjectKind::kText || kind == ObjectKind::kMtext || kind == ObjectKind::kAttdef ||
         kind == ObjectKind::kAttrib;
}

EntityHead readEntityHead(const ObjectFrame& frame) {
  const Fields fields = readCommonFields(frame);
  EntityHead head;
  head.mode = static_cast<EntityMode>(std::min<std::int64_t>(fields.integer("entity mode"), 2));
  head.linetypeKind = linetypeKindOf(fields);
  head.color = fields.color("color").number;
  head.owner = fields.handle("owner").value_or(0);
  head.next = fields.integer("no links") != 0 ? frame.handle + 1 : fields.handle("next").value_or(0);
  head.layer = fields.handle("layer").value_or(0);
  head.linetype = fields.handle("linetype").value_or(0);
  if (hasTextStyle(frame.type.kind)) head.style = styleOf(frame, fields);
  return head;
}

}  // namespace cad::dwg
