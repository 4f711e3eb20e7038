// Where new records go, and the handles they get.

#include <algorithm>
#include <utility>

#include "embedded/drawing/drawing.h"
#include "embedded/dxf/dxf_storage.h"

namespace cad::dxf {
namespace {

base::Failure noPlace() { return {{}, L"The drawing's file has no place for new records"}; }

// Handles are taken in steps, so that the header changes once in a while only.
constexpr Handle kSeedStep = 64;

// Nothing counts up to larger ones in earnest; behind them the numbers would begin anew.
constexpr Handle kLargestHandle = Handle{1} << 62;

Handle usable(Handle seed) { return seed > kLargestHandle ? 0 : seed; }

}  // namespace

RecordId DxfStorage::insert(Drawing& drawing, PlacedRecord placed) {
  Record record;
  record.kind = placed.kind;
  record.table = placed.table;
  record.owner = placed.owner;
  record.length = static_cast<std::uint32_t>(placed.bytes.size());
  record.offset = edits_.keepRecord(std::move(placed.bytes));
  const RecordId id = drawing.enter(record, placed.implied);
  added_.push_back({id, placed.before});
  return id;
}

void DxfStorage::takeBack(RecordId record) {
  added_.pop_back();
  for (auto* slots : {&frame_.sectionBegin, &frame_.sectionEnd}) {
    std::ranges::replace(*slots, record, kNoRecord);
  }
  for (auto* slots : {&frame_.tableHead, &frame_.tableEnd}) std::ranges::replace(*slots, record, kNoRecord);
}

std::optional<Handle> DxfStorage::takeHandle(Drawing& drawing) {
  const RecordId header = headerRecord();
  if (nextHandle_ == 0) {
    nextHandle_ = header == kNoRecord ? 0 : handleSeed(drawing.record(header));
    bool any = nextHandle_ != 0;
    nextHandle_ = usable(nextHandle_);
    for (RecordId id = 0; id < drawing.recordCount(); ++id) {
      const auto own = handle(drawing.record(id));
      if (!own || *own > kLargestHandle) continue;
      any = true;
      nextHandle_ = std::max(nextHandle_, *own + 1);
    }
    if (!any && facts_.version == Version::kR12) return std::nullopt;
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
