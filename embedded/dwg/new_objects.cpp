// Objects that are added: their handles, and how they enter the drawing.

#include <algorithm>
#include <cassert>

#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/fields/header_fields.h"

namespace cad::dwg {

Handle DwgStorage::takeHandle() {
  if (nextHandle_ == 0) {
    const std::span<const ObjectPlace> places = file_->places();
    const Handle largest = places.empty() ? 0 : places.back().handle;
    const Handle seed = readHeader(file_->header(), version()).handle("HANDSEED").value_or(0);
    nextHandle_ = std::max(largest + 1, seed);
  }
  return nextHandle_++;
}

base::Status DwgStorage::keep(const NewObject& object) {
  const base::Result<WrittenObject> built =
      build(object.kind, version(), object.handle, object.values, classes_);
  if (!built.ok()) return built.failure();
  addedByHandle_[object.handle] = added_.size();
  live_.push_back(added_.size());
  const EditId first = states_.add(kNoEdit, {}, built.value().data, built.value().handleBits);
  added_.push_back({object.handle, first, kNoRecord, object.kind});
  return {};
}

RecordId DwgStorage::enterKept(Drawing& drawing, Handle handle, const NewRecord& made) {
  const std::size_t index = addedByHandle_.at(handle);
  Record record;
  record.kind = made.kind;
  record.table = made.table;
  record.owner = made.owner;
  record.offset = index;
  record.length = numberOf(added_[index].kind, version(), classes_).value_or(0);
  record.signature = made.signature;
  const RecordId id = drawing.enter(record, made.implied);
  added_[index].record = id;
  return id;
}

base::Result<RecordId> DwgStorage::enter(Drawing& drawing, const NewObject& object, const NewRecord& made) {
  if (const base::Status status = keep(object); !status) return status.failure();
  return enterKept(drawing, object.handle, made);
}

void DwgStorage::takeBack(RecordId record) {
  while (!live_.empty()) {
    const RecordId newest = added_[live_.back()].record;
    forgetNewest();
    if (newest == record) return;
    assert(newest == kNoRecord);  // was kept, but never entered, and goes along
  }
}

// The drawing's record stays, erased, and with it the object and its handle.
void DwgStorage::forgetNewest() {
  const Handle handle = added_[live_.back()].handle;
  if (const auto entry = records_.entryOfBlock.find(handle); entry != records_.entryOfBlock.end()) {
    records_.blockOfEntry.erase(entry->second);
    records_.beginOfEntry.erase(entry->second);
    records_.entryOfBlock.erase(entry);
  }
  firstNames_.erase(handle);
  addedByHandle_.erase(handle);
  live_.pop_back();
}

void DwgStorage::forgetKept() {
  while (!live_.empty() && added_[live_.back()].record == kNoRecord) forgetNewest();
}

void DwgStorage::announce(Handle entry, Handle begin) {
  records_.entryOfBlock[begin] = entry;
  records_.beginOfEntry[entry] = begin;
}

base::Status DwgStorage::change(Drawing& drawing, RecordId id, const FieldChanges& changes) {
  const base::Result<EditId> state = changed(drawing.record(id), changes);
  if (!state.ok()) return state.failure();
  drawing.setUnselectedEdits(id, state.value());
  return {};
}

// --- Records of tables -----------------------------------------------------------------------------------

base::Status DwgStorage::enlist(Drawing& drawing, Table table, Handle entry) {
  const RecordId head = control(table);
  if (head == kNoRecord) return base::Failure{{}, L"The drawing does not have this table"};
  const auto count = static_cast<std::uint32_t>(fields(drawing.record(head)).integer("entry count"));
  FieldChanges changes;
  changes.set("entry count", Value(std::int64_t{count} + 1));
  changes.setHandle("entry", entry, count);
  if (table == Table::kBlockRecord) records_.indexOfEntry[entry] = count;
  return change(drawing, head, changes);
}

}  // namespace cad::dwg
