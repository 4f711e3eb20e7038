// Renaming a layer: its name stands in every entity on it, in extended data and in the header.

#include <algorithm>
#include <utility>
#include <vector>

#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

std::vector<std::wstring> DxfStorage::layersInExtendedData(const Record& record) const {
  std::string scratch;
  std::vector<std::wstring> layers;
  GroupCursor cursor(bytes(record, scratch), dialect_);
  while (cursor.next()) {
    if (cursor.group().code == kLayerName)
      layers.push_back(base::upper(decode(trimmed(cursor.group().value))));
  }
  std::ranges::sort(layers);
  layers.erase(std::unique(layers.begin(), layers.end()), layers.end());
  return layers;
}

EditId DxfStorage::renamedInExtendedData(const Record& record, const std::wstring& from,
                                         std::string_view to) {
  std::string scratch;
  const std::string_view stored = bytes(record, scratch);
  std::vector<Group> found;
  GroupCursor cursor(stored, dialect_);
  while (cursor.next()) {
    const Group& group = cursor.group();
    if (group.code != kLayerName || group.value == to) continue;
    if (base::upper(decode(trimmed(group.value))) == from) found.push_back(group);
  }
  if (found.empty()) return record.edits;
  if (found.size() == 1) return withValue(record, found.front(), to);
  std::string renamed;
  std::size_t done = 0;
  for (const Group& group : found) {
    renamed.append(stored.substr(done, group.valueBegin - done)).append(to);
    done = group.valueBegin + group.value.size();
  }
  renamed.append(stored.substr(done));
  return edits_.addWhole(record.edits, std::move(renamed));
}

// The records that name the layer, which the caller renames. All layers are looked up at once, because those
// who rename one mostly rename more.
std::vector<RecordId> DxfStorage::takeLayerUses(const Drawing& drawing, const std::wstring& folded) {
  if (layerUsesAt_ != drawing.entityRevision()) {
    layerUsesAt_ = drawing.entityRevision();
    layerUses_.clear();
    for (RecordId id = 0; id < drawing.recordCount(); ++id) {
      const Record& record = drawing.record(id);
      const NameId layer = record.signature == 0 ? kNoName : drawing.signature(record.signature).layer;
      if (layer != kNoName) layerUses_[drawing.names().folded(layer)].push_back(id);
      if ((record.flags & Record::kMarked) == 0) continue;
      for (const std::wstring& name : layersInExtendedData(record)) layerUses_[name].push_back(id);
    }
  }
  const auto found = layerUses_.extract(folded);
  return found.empty() ? std::vector<RecordId>() : std::move(found.mapped());
}

base::Status DxfStorage::renameLayer(Drawing& drawing, RecordId layer, std::wstring_view newName) {
  const std::wstring old = drawing.names().folded(drawing.recordName(layer));
  const std::string stored = encode(newName);
  if (base::Status named = drawing.setStored(layer, Property::kName, stored); !named) return named;
  const std::vector<RecordId> uses = takeLayerUses(drawing, old);
  layerUsesAt_.reset();  // until all of them have the new name
  for (const RecordId id : uses) {
    const Record& record = drawing.record(id);
    const NameId entityLayer = record.signature == 0 ? kNoName : drawing.signature(record.signature).layer;
    if (entityLayer != kNoName && drawing.names().folded(entityLayer) == old) {
      if (base::Status status = drawing.setStored(id, Property::kLayer, stored); !status) return status;
    }
    if ((record.flags & Record::kMarked) != 0)
      drawing.setEdits(id, renamedInExtendedData(drawing.record(id), old, stored));
  }
  std::vector<RecordId>& moved = layerUses_[base::upper(newName)];
  moved.insert(moved.end(), uses.begin(), uses.end());
  layerUsesAt_ = drawing.entityRevision();
  const auto current = headerVariable(drawing, "CLAYER");
  const auto* currentName = current ? std::get_if<std::wstring>(&*current) : nullptr;
  if (currentName == nullptr || base::upper(*currentName) != old) return {};
  return setHeaderVariable(drawing, "CLAYER", std::wstring(newName));
}

}  // namespace cad::dxf
