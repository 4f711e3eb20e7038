// Where new records go, and the handles they get.

#include <algorithm>
#include <utility>

#include "embedded/drawing/drawing.h"

namespace cad {
namespace {

std::size_t index(Table table) { return static_cast<std::size_t>(table); }
std::size_t index(Section section) { return static_cast<std::size_t>(section); }

base::Failure noPlace() { return {{}, L"The drawing's file has no place for new records"}; }

// Handles are taken in steps, so that the header changes once in a while only.
constexpr Handle kSeedStep = 64;

// Nothing counts up to larger ones in earnest; behind them the numbers would begin anew.
constexpr Handle kLargestHandle = Handle{1} << 62;

Handle usable(Handle seed) { return seed > kLargestHandle ? 0 : seed; }

}  // namespace

RecordId Drawing::insertRecord(NewRecord fresh) {
  Record record;
  record.kind = fresh.kind;
  record.table = fresh.table;
  record.owner = fresh.owner;
  storage_->keep(record, std::move(fresh.bytes));
  const bool drawn = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity ||
                     record.kind == RecordKind::kBlockBegin || record.kind == RecordKind::kBlockEnd;
  if (drawn) record.signature = signatures_.intern(storage_->readSignature(record, names_));
  if (drawn) layerUses_.reset();
  const RecordId id = append(record);
  added_.push_back({id, fresh.before});
  journal_.add({id, kNoEdit, 0, JournalEntry::Kind::kAdded, 0});
  count(records_[id], 1);
  modified_ = true;
  ++revision_;
  blockLists_.reset();
  subRecords_.reset();
  if (handles_) {
    if (const auto own = storage_->handle(record)) handles_->try_emplace(*own, id);
  }
  if (record.table == Table::kNone || record.kind == RecordKind::kTableHead) return id;
  TableIndex& members = tables_[index(record.table)];
  if (members.fresh()) {
    const NameId name = tableName(id);
    members.append(id, name == kNoName ? std::wstring() : names_.folded(name));
  } else {
    members.add(id);
  }
  if (record.table == Table::kLayer) locked_.clear();
  return id;
}

base::Status Drawing::materialise(RecordId id) {
  if (!records_[id].implied()) return {};
  if (records_[id].kind != RecordKind::kTableRecord) {
    return base::Failure{{}, L"The file does not hold this block as a record"};
  }
  ChangeScope scope(*this);
  const std::wstring name = names_.text(impliedNames_.at(id));
  auto built = storage_->buildTableRecord(*this, records_[id].table, name);
  if (!built) {
    scope.rollBack();
    return built.failure();
  }
  Record& record = records_[id];
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kMaterialised, record.flags});
  Record kept = record;
  storage_->keep(kept, std::move(built.value().bytes));
  record.offset = kept.offset;
  record.length = kept.length;
  added_.push_back({id, built.value().before});
  setState(id, kNoEdit, record.signature, kept.flags);
  if (handles_) {
    if (const auto own = storage_->handle(records_[id])) handles_->try_emplace(*own, id);
  }
  return {};
}

std::optional<Handle> Drawing::takeHandle() {
  if (nextHandle_ == 0) {
    nextHandle_ = header_ == kNoRecord ? 0 : storage_->handleSeed(records_[header_]);
    bool any = nextHandle_ != 0;
    nextHandle_ = usable(nextHandle_);
    for (const Record& record : records_) {
      const auto own = storage_->handle(record);
      if (!own || *own > kLargestHandle) continue;
      any = true;
      nextHandle_ = std::max(nextHandle_, *own + 1);
    }
    if (!any && facts().version == Version::kR12) return std::nullopt;
    nextHandle_ = std::max<Handle>(nextHandle_, 0x100);
  }
  const Handle taken = nextHandle_++;
  if (header_ == kNoRecord) return taken;
  if (!seed_ || seed_->first != records_[header_].edits) {
    seed_ = {records_[header_].edits, usable(storage_->handleSeed(records_[header_]))};
  }
  if (seed_->second < nextHandle_) {
    setEdits(header_, storage_->raiseHandleSeed(records_[header_], nextHandle_ + kSeedStep));
    seed_.reset();
  }
  return taken;
}

base::Result<RecordId> Drawing::endOfSection(Section section) {
  if (const RecordId end = frame_.sectionEnd[index(section)]; end != kNoRecord) return end;
  // A new section stands before the next one that the file has.
  RecordId before = frame_.endOfFile;
  for (std::size_t next = FileFrame::kSections; next-- > index(section) + 1;) {
    if (frame_.sectionBegin[next] != kNoRecord) before = frame_.sectionBegin[next];
  }
  const bool begun = frame_.sectionBegin[index(section)] != kNoRecord;
  if (before == kNoRecord) return noPlace();
  const auto add = [&](bool end) {
    return insertRecord(
        {RecordKind::kSection, Table::kNone, before, kNoRecord, storage_->sectionBytes(section, end)});
  };
  if (!begun) frame_.sectionBegin[index(section)] = add(false);
  if (section == Section::kHeader) header_ = frame_.sectionBegin[index(section)];
  return frame_.sectionEnd[index(section)] = add(true);
}

base::Result<RecordId> Drawing::endOfTable(Table table) {
  if (const RecordId end = frame_.tableEnd[index(table)]; end != kNoRecord) return end;
  return makeTable(table);
}

base::Result<RecordId> Drawing::makeTable(Table table) {
  const auto before = endOfSection(Section::kTables);
  if (!before) return before.failure();
  const auto handle = facts().version >= Version::kR13 ? takeHandle() : std::nullopt;
  const auto add = [&](bool end) {
    return insertRecord({RecordKind::kTableHead, end ? Table::kNone : table, before.value(), kNoRecord,
                         storage_->tableBytes(table, handle, end)});
  };
  frame_.tableHead[index(table)] = add(false);
  return frame_.tableEnd[index(table)] = add(true);
}

RecordId Drawing::tableHead(Table table) const { return frame_.tableHead[index(table)]; }

RecordId Drawing::endOfBlock(RecordId block) const {
  for (std::size_t i = block + std::size_t{1}; i < records_.size(); ++i) {
    if (records_[i].kind == RecordKind::kBlockEnd && records_[i].owner == block)
      return static_cast<RecordId>(i);
  }
  return kNoRecord;
}

}  // namespace cad
