// Where new records go, the handles they get, and what frames them in files that lack it.

#include <algorithm>
#include <cassert>
#include <utility>

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_writer.h"

namespace cad::dxf {
namespace {

base::Failure noPlace() { return {{}, L"The drawing's file has no place for new records"}; }

// Handles are taken in steps, so that the header changes once in a while only.
constexpr Handle kSeedStep = 64;

bool isEntity(RecordKind kind) { return kind == RecordKind::kEntity || kind == RecordKind::kSubEntity; }

Handle usable(Handle seed) { return seed > kLargestHandle ? 0 : seed; }

constexpr std::string_view kSectionNames[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
constexpr std::string_view kTableNames[] = {"",      "LAYER", "LTYPE", "STYLE", "DIMSTYLE",    "BLOCK",
                                            "APPID", "VIEW",  "UCS",   "VPORT", "BLOCK_RECORD"};

}  // namespace

RecordId DxfStorage::insert(Drawing& drawing, PlacedRecord placed) {
  assert(placed.before != kNoRecord);
  Record record;
  record.kind = placed.kind;
  record.table = placed.table;
  record.owner = placed.owner;
  record.signature = placed.signature;
  record.length = static_cast<std::uint32_t>(placed.bytes.size());
  if (isEntity(placed.kind) && namesLayers(placed.bytes)) record.flags |= Record::kMarked;
  record.offset = edits_.keepRecord(std::move(placed.bytes));
  const RecordId id = drawing.enter(record, placed.implied);
  added_.push_back({id, placed.before});
  return id;
}

bool DxfStorage::namesLayers(std::string_view bytes) const {
  if (!dialect_.binary && bytes.find("1003") == bytes.npos) return false;
  GroupCursor cursor(bytes, dialect_);
  while (cursor.next())
    if (cursor.group().code == kLayerName) return true;
  return false;
}

void DxfStorage::takeBack(RecordId record) {
  assert(added_.back().record == record);
  added_.pop_back();
  for (auto* slots : {&frame_.sectionBegin, &frame_.sectionEnd}) {
    std::ranges::replace(*slots, record, kNoRecord);
  }
  for (auto* slots : {&frame_.tableHead, &frame_.tableEnd}) std::ranges::replace(*slots, record, kNoRecord);
}

std::optional<Handle> DxfStorage::largestHandle(const Drawing& drawing) const {
  if (!frame_.handlesUnknown) return frame_.largestHandle;
  std::optional<Handle> largest;
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    const std::optional<Handle> own = handle(drawing.record(id));
    if (own && *own <= kLargestHandle) largest = std::max(largest.value_or(0), *own);
  }
  return largest;
}

std::optional<Handle> DxfStorage::takeHandle(Drawing& drawing) {
  if (withoutHandles_) return std::nullopt;
  const RecordId header = headerRecord();
  if (nextHandle_ == 0) {
    nextHandle_ = header == kNoRecord ? 0 : handleSeed(drawing.record(header));
    const std::optional<Handle> largest = largestHandle(drawing);
    const bool any = nextHandle_ != 0 || largest;
    nextHandle_ = usable(nextHandle_);
    if (largest) nextHandle_ = std::max(nextHandle_, *largest + 1);
    withoutHandles_ = !any && facts_.version == Version::kR12;
    if (withoutHandles_) return std::nullopt;
    nextHandle_ = std::max<Handle>(nextHandle_, 0x100);
  }
  const Handle taken = nextHandle_++;
  if (header == kNoRecord) return taken;
  const Record& record = drawing.record(header);
  if (!seed_ || seed_->first != record.edits) seed_ = {record.edits, usable(handleSeed(record))};
  if (seed_->second < nextHandle_) {
    drawing.setEdits(header, raiseHandleSeed(record, nextHandle_ + kSeedStep));
    seed_.reset();
  }
  return taken;
}

std::string DxfStorage::sectionBytes(Section section, bool end) const {
  GroupWriter writer(dialect_);
  writer.text(0, end ? "ENDSEC" : "SECTION");
  if (!end) writer.text(2, kSectionNames[static_cast<std::size_t>(section)]);
  return writer.take();
}

std::string DxfStorage::tableBytes(Table table, std::optional<Handle> handle, bool end) const {
  GroupWriter writer(dialect_);
  writer.text(0, end ? "ENDTAB" : "TABLE");
  if (end) return writer.take();
  writer.text(2, kTableNames[static_cast<std::size_t>(table)]);
  if (handle) writer.handle(5, *handle);
  if (facts_.version >= Version::kR2000) writer.handle(330, 0);
  if (facts_.version >= Version::kR13) writer.text(100, "AcDbSymbolTable");
  writer.integer(70, 0);
  if (table == Table::kDimStyle && facts_.version >= Version::kR2000) writer.text(100, "AcDbDimStyleTable");
  return writer.take();
}

base::Result<RecordId> DxfStorage::endOfSection(Drawing& drawing, Section section) {
  if (const RecordId end = frame_.sectionEnd[index(section)]; end != kNoRecord) return end;
  // A new section stands before the next one that the file has.
  RecordId before = frame_.endOfFile;
  for (std::size_t next = FileFrame::kSections; next-- > index(section) + 1;) {
    if (frame_.sectionBegin[next] != kNoRecord) before = frame_.sectionBegin[next];
  }
  const bool begun = frame_.sectionBegin[index(section)] != kNoRecord;
  if (before == kNoRecord) return noPlace();
  const auto add = [&](bool end) {
    return insert(drawing,
                  {.kind = RecordKind::kFrame, .before = before, .bytes = sectionBytes(section, end)});
  };
  if (!begun) frame_.sectionBegin[index(section)] = add(false);
  return frame_.sectionEnd[index(section)] = add(true);
}

base::Result<RecordId> DxfStorage::endOfTable(Drawing& drawing, Table table) {
  if (const RecordId end = frame_.tableEnd[index(table)]; end != kNoRecord) return end;
  const auto before = endOfSection(drawing, Section::kTables);
  if (!before) return before.failure();
  const auto handle = facts_.version >= Version::kR13 ? takeHandle(drawing) : std::nullopt;
  frame_.tableHead[index(table)] = insert(drawing, {.kind = RecordKind::kTable,
                                                    .table = table,
                                                    .before = before.value(),
                                                    .bytes = tableBytes(table, handle, false)});
  return frame_.tableEnd[index(table)] = insert(drawing, {.kind = RecordKind::kFrame,
                                                          .before = before.value(),
                                                          .bytes = tableBytes(table, handle, true)});
}

}  // namespace cad::dxf
