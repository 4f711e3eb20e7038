#include "embedded/drawing/drawing_changes.h"

#include <algorithm>
#include <utility>

namespace cad {
namespace {

bool isSpaceEntity(const Record& record) {
  return record.kind == RecordKind::kEntity && !record.erased() && record.owner != kNoRecord;
}

}  // namespace

void UndoJournal::beginGroup() {
  endGroup();
  entries_.push_back({.kind = JournalEntry::Kind::kGroupBegin});
  open_ = true;
}

void UndoJournal::endGroup() {
  if (!open_) return;
  open_ = false;
  if (entries_.back().kind == JournalEntry::Kind::kGroupBegin) {
    entries_.pop_back();
  } else {
    entries_.push_back({.kind = JournalEntry::Kind::kGroupEnd});
  }
}

void UndoJournal::groupSince(std::size_t size) {
  using Kind = JournalEntry::Kind;
  const auto begin = entries_.begin() + static_cast<std::ptrdiff_t>(size);
  entries_.erase(std::remove_if(begin, entries_.end(),
                                [](const JournalEntry& entry) {
                                  return entry.kind == Kind::kGroupBegin || entry.kind == Kind::kGroupEnd;
                                }),
                 entries_.end());
  entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(size), {.kind = Kind::kGroupBegin});
  open_ = true;
}

JournalEntry UndoJournal::take() {
  const JournalEntry entry = entries_.back();
  entries_.pop_back();
  return entry;
}

DrawingChanges::DrawingChanges(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded)
    : DrawingBlocks(std::move(storage), std::move(loaded)) {
  spaceCounts_.resize(signatures_.all().size());
  for (const Record& record : records_) count(record, 1);
}

// --- States of records ---------------------------------------------------------------------------------

void DrawingChanges::count(const Record& record, int difference) {
  if (!isSpaceEntity(record) || (records_[record.owner].flags & Record::kLayoutSpace) == 0) return;
  if (record.signature >= spaceCounts_.size()) spaceCounts_.resize(signatures_.all().size());
  spaceCounts_[record.signature] += static_cast<std::uint32_t>(difference);
}

void DrawingChanges::change(RecordId id, EditId edits, SignatureId signature, std::uint8_t flags) {
  const Record& record = records_[id];
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kState, record.flags});
  setState(id, edits, signature, flags);
}

void DrawingChanges::setState(RecordId id, EditId edits, SignatureId signature, std::uint8_t flags) {
  Record& record = records_[id];
  const bool counted = record.signature != signature || record.flags != flags;
  const bool member = record.hasTableName();
  const bool wasErased = record.erased();
  const bool named = member && !wasErased && index(record.table).fresh();
  const NameId before = named ? recordName(id) : kNoName;
  if (record.signature != 0 || (record.flags & Record::kMarked) != 0) ++entityRevision_;
  if (counted) count(record, -1);
  record.edits = edits;
  record.signature = signature;
  record.flags = flags;
  if (counted) count(record, 1);
  modified_ = true;
  ++revision_;
  if (member) tableRecordChanged(id, before, wasErased);
}

RecordId DrawingChanges::addNew(const Record& record) {
  if (record.signature != 0) ++entityRevision_;
  const RecordId id = append(record);
  journal_.add({id, kNoEdit, 0, JournalEntry::Kind::kAdded, 0});
  count(record, 1);
  modified_ = true;
  ++revision_;
  listAdded(id);
  if (record.hasTableName()) tableRecordAdded(id);
  return id;
}

void DrawingChanges::addImplied(const Record& made, RecordId id) {
  Record& record = records_[id];
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kMaterialised, record.flags});
  record.offset = made.offset;
  record.length = made.length;
  setState(id, kNoEdit, record.signature, record.flags | made.flags);
}

SignatureId DrawingChanges::signatureWith(const Record& record, Property property, const StoredValue& value) {
  const SignatureId from = record.signature;
  const bool named =
      property == Property::kLayer || property == Property::kLinetype || property == Property::kTextStyle;
  if (from == 0 || !(named || property == Property::kColorIndex)) return from;
  // Entities that are alike mostly get the same change one after another.
  if (from >= lastSteps_.size()) lastSteps_.resize(signatures_.all().size());
  SignatureStep& step = lastSteps_[from];
  const std::int64_t next = named ? nameOf(value) : std::get<std::int64_t>(value);
  if (step.to != 0 && step.property == property && step.value == next) return step.to;
  Signature signature = signatures_[from];
  if (named) {
    const auto name = static_cast<NameId>(next);
    (property == Property::kLayer      ? signature.layer
     : property == Property::kLinetype ? signature.linetype
                                       : signature.style) = name;
  } else {
    signature.color = static_cast<std::int16_t>(next);
  }
  step = {property, next, signatures_.intern(signature)};
  return step.to;
}

// --- Erasing -------------------------------------------------------------------------------------------

void DrawingChanges::eraseOne(RecordId id, bool erased) {
  const Record& record = records_[id];
  if (record.erased() == erased) return;
  const std::uint8_t flags =
      static_cast<std::uint8_t>(erased ? record.flags | Record::kErased : record.flags & ~Record::kErased);
  change(id, record.edits, record.signature, flags);
}

base::Status DrawingChanges::setErased(RecordId id, bool erased) {
  const Record& record = records_[id];
  ChangeScope scope(*this);
  switch (record.kind) {
    case RecordKind::kEntity: {
      const auto subRecords = subRecordsOf(id);
      const std::vector<RecordId> parts(subRecords.begin(), subRecords.end());
      eraseOne(id, erased);
      for (const RecordId part : parts) eraseOne(part, erased);
      return {};
    }
    case RecordKind::kTableRecord:
      if (record.implied()) break;
      eraseOne(id, erased);
      return {};
    case RecordKind::kBlockBegin: {
      if (isLayoutSpace(id)) break;
      const std::vector<RecordId> entities = entitiesOf(id);
      for (const RecordId entity : entities) {
        if (const base::Status status = setErased(entity, erased); !status) return status;
      }
      const RecordId entry = find(Table::kBlockRecord, name(id, Property::kName));
      if (entry != kNoRecord) eraseOne(entry, erased);
      if (const RecordId end = endOfBlock(id); end != kNoRecord) eraseOne(end, erased);
      eraseOne(id, erased);
      return {};
    }
    default:
      break;
  }
  return base::Failure{{}, L"Records of this kind cannot be erased"};
}

// --- Selection ----------------------------------------------------------------------------------------

void DrawingChanges::forEachSpaceEntity(const std::vector<bool>& wanted,
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

bool DrawingChanges::undo() {
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

void DrawingChanges::undoOne() {
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

DrawingChanges::ChangeScope::ChangeScope(DrawingChanges& drawing)
    : drawing_(drawing), begin_(0), opened_(!drawing.journal_.groupOpen()) {
  if (opened_) drawing_.journal_.beginGroup();
  begin_ = drawing_.journal_.size();
}

DrawingChanges::ChangeScope::~ChangeScope() {
  if (opened_) drawing_.journal_.endGroup();
}

void DrawingChanges::ChangeScope::rollBack() {
  while (drawing_.journal_.size() > begin_) drawing_.undoOne();
}

}  // namespace cad
