// What selections look for, read anew from a changed record, and the name of a layer.

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/entity_head.h"

namespace cad::dwg {

// A layer's name stands in its record alone.
base::Status DwgStorage::renameLayer(Drawing& drawing, RecordId layer, std::wstring_view newName) {
  const NameId from = drawing.recordName(layer);
  const std::string stored = encodeStored(newName, facts().codePage);
  if (base::Status named = drawing.setStored(layer, Property::kName, stored); !named) return named;
  drawing.layerRenamed(from, drawing.recordName(layer));
  return {};
}

Signature DwgStorage::readSignature(Drawing& drawing, const Record& record) const {
  const base::Result<ObjectFrame> frame = this->frame(record);
  if (!frame.ok()) return {};
  NamePool& names = drawing.names();
  const EntityHead head = readEntityHead(frame.value());
  const auto named = [&](Handle handle, std::string_view otherwise) {
    const RecordId id = handle == 0 ? kNoRecord : recordOf(handle);
    const NameId name = id == kNoRecord ? kNoName : drawing.recordName(id);
    return name == kNoName ? names.intern(otherwise) : name;
  };
  Signature signature;
  signature.type = names.intern(frame.value().type.name);
  signature.layer = named(head.layer, "0");
  signature.linetype = head.linetypeKind == LinetypeKind::kNamed
                           ? named(head.linetype, "ByLayer")
                           : names.intern(linetypeName(head.linetypeKind));
  if (hasTextStyle(frame.value().type.kind)) signature.style = named(head.style, "Standard");
  signature.color = head.color;
  return signature;
}

}  // namespace cad::dwg
