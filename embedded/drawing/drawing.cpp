#include "embedded/drawing/drawing.h"

#include <algorithm>
#include <utility>

namespace cad {
namespace {

bool isSpaceEntity(const Record& record) {
  return record.kind == RecordKind::kEntity && !record.erased() && record.owner != kNoRecord;
}

}  // namespace

Drawing::Drawing(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded)
    : storage_(std::move(storage)),
      records_(std::move(loaded.records)),
      signatures_(std::move(loaded.signatures)),
      names_(std::move(loaded.names)) {
  buildTables();
  for (Record& record : records_) {
    if (record.owner == LoadedRecords::kInModelSpace) record.owner = modelSpace_;
    if (record.owner == LoadedRecords::kInPaperSpace) record.owner = paperSpace_;
  }
  spaceCounts_.resize(signatures_.all().size());
  for (const Record& record : records_) count(record, 1);
}

Drawing::~Drawing() = default;

base::Status Drawing::save(const std::filesystem::path& target) {
  base::Status status = storage_->save(target, records_);
  if (!status) return status;
  path_ = target;
  modified_ = false;
  return status;
}

bool Drawing::isModified() const { return modified_; }

std::string_view Drawing::typeName(RecordId id) const {
  const Record& record = records_[id];
  if (record.signature != 0) return names_.stored(signatures_[record.signature].type);
  if (record.implied()) return {};
  return storage_->typeName(record);
}

std::optional<Handle> Drawing::handle(RecordId id) const { return storage_->handle(records_[id]); }

RecordId Drawing::findHandle(Handle handle) const {
  if (!handles_) {
    handles_ = std::make_unique<std::unordered_map<Handle, RecordId>>();
    for (RecordId id = 0; id < records_.size(); ++id) {
      const auto own = storage_->handle(records_[id]);
      if (own && *own != 0) handles_->try_emplace(*own, id);  // of equal handles the first counts
    }
  }
  const auto found = handles_->find(handle);
  return found == handles_->end() ? kNoRecord : found->second;
}

// --- What is kept up to date ------------------------------------------------------------------------

void Drawing::count(const Record& record, int difference) {
  if (!isSpaceEntity(record) || (records_[record.owner].flags & Record::kLayoutSpace) == 0) return;
  if (record.signature >= spaceCounts_.size()) spaceCounts_.resize(signatures_.all().size());
  spaceCounts_[record.signature] += static_cast<std::uint32_t>(difference);
}

void Drawing::setState(RecordId id, EditId edits, SignatureId signature, std::uint8_t flags) {
  Record& record = records_[id];
  const bool counted = record.signature != signature || record.flags != flags;
  const bool member = record.kind == RecordKind::kTableRecord || record.kind == RecordKind::kBlockBegin;
  const bool wasErased = record.erased();
  const bool named = member && !wasErased && tables_[static_cast<std::size_t>(record.table)].fresh();
  const NameId before = named ? recordName(id) : kNoName;
  if (record.signature != 0 || (record.flags & Record::kMarked) != 0) ++entityRevision_;
  if (counted) count(record, -1);
  record.edits = edits;
  record.signature = signature;
  record.flags = flags;
  if (counted) count(record, 1);
  modified_ = true;
  ++revision_;
  if (!member) return;
  recordNames_.erase(id);
  memberChanged(id, before, wasErased);
}

// Brings the index of a table up to date with one of its records; `before` is the name it had there.
void Drawing::memberChanged(RecordId id, NameId before, bool wasErased) {
  const Record& record = records_[id];
  if (record.table == Table::kLayer) locked_.clear();
  TableIndex& members = tables_[static_cast<std::size_t>(record.table)];
  if (!members.fresh() || (wasErased && record.erased())) return;
  const auto folded = [&](NameId name) { return name == kNoName ? std::wstring() : names_.folded(name); };
  if (wasErased) return members.invalidate();
  if (record.erased()) return members.remove(id, folded(before));
  const NameId after = recordName(id);
  if (after == before) return;
  const std::wstring from = folded(before), to = folded(after);
  if (from != to) members.rename(id, from, to);
}

void Drawing::setEdits(RecordId id, EditId edits) {
  const Record& record = records_[id];
  if (record.edits == edits) return;
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kState, record.flags});
  Record state = record;
  state.edits = edits;
  const SignatureId signature =
      record.signature == 0 ? 0 : signatures_.intern(storage_->readSignature(*this, state));
  setState(id, edits, signature, record.flags);
}

// --- Selection ----------------------------------------------------------------------------------------

void Drawing::forEachSpaceEntity(const std::vector<bool>& wanted,
                                 const std::function<void(RecordId)>& visit) const {
  std::uint64_t left = 0;
  const std::size_t known = std::min(wanted.size(), spaceCounts_.size());
  for (std::size_t i = 0; i < known; ++i) left += wanted[i] ? spaceCounts_[i] : 0;
  for (std::size_t i = records_.size(); i-- > 0 && left > 0;) {
    const Record& record = records_[i];
    if (!isSpaceEntity(record) || record.signature >= known || !wanted[record.signature]) continue;
    if ((records_[record.owner].flags & Record::kLayoutSpace) == 0) continue;
    --left;
    visit(static_cast<RecordId>(i));
  }
}

// --- Undo ---------------------------------------------------------------------------------------------

void Drawing::beginUndoGroup() { journal_.beginGroup(); }
void Drawing::endUndoGroup() { journal_.endGroup(); }

bool Drawing::undo() {
  journal_.endGroup();
  if (journal_.empty()) return false;
  if (journal_.last().kind != JournalEntry::Kind::kGroupEnd) {
    undoOne();
    return true;
  }
  journal_.take();
  while (journal_.last().kind != JournalEntry::Kind::kGroupBegin) undoOne();
  journal_.take();
  return true;
}

void Drawing::undoOne() {
  const JournalEntry entry = journal_.take();
  switch (entry.kind) {
    case JournalEntry::Kind::kState:
      return setState(entry.record, entry.edits, entry.signature, entry.flags);
    case JournalEntry::Kind::kMaterialised:
      records_[entry.record].length = 0;
      setState(entry.record, entry.edits, entry.signature, entry.flags);
      return storage_->takeBack(entry.record);
    case JournalEntry::Kind::kAdded:
      // The record's number stays taken; nobody finds it any more.
      setState(entry.record, kNoEdit, records_[entry.record].signature,
               records_[entry.record].flags | Record::kErased);
      return storage_->takeBack(entry.record);
    default:
      return;
  }
}

Drawing::ChangeScope::ChangeScope(Drawing& drawing)
    : drawing_(drawing), begin_(0), opened_(!drawing.journal_.groupOpen()) {
  if (opened_) drawing_.journal_.beginGroup();
  begin_ = drawing_.journal_.size();
}

Drawing::ChangeScope::~ChangeScope() {
  if (opened_) drawing_.journal_.endGroup();
}

void Drawing::ChangeScope::rollBack() {
  while (drawing_.journal_.size() > begin_) drawing_.undoOne();
}

}  // namespace cad
