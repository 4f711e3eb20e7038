// New records, blocks and variables: the file's format knows how they are written.

#include <cmath>

#include "embedded/drawing/block_copy.h"
#include "embedded/drawing/drawing.h"

namespace cad {
namespace {

bool isDrawn(RecordKind kind) {
  return kind == RecordKind::kEntity || kind == RecordKind::kSubEntity || kind == RecordKind::kBlockBegin ||
         kind == RecordKind::kBlockEnd;
}

}  // namespace

RecordId Drawing::enter(Record record, RecordId implied) {
  record.flags |= Record::kAdded;
  const RecordId id = implied == kNoRecord ? enterNew(record) : enterImplied(record, implied);
  if (handles_) {
    if (const auto own = storage_->handle(records_[id])) handles_->try_emplace(*own, id);
  }
  return id;
}

RecordId Drawing::enterNew(Record record) {
  if (isDrawn(record.kind)) {
    record.signature = signatures_.intern(storage_->readSignature(*this, record));
    ++entityRevision_;
  }
  const RecordId id = append(record);
  journal_.add({id, kNoEdit, 0, JournalEntry::Kind::kAdded, 0});
  count(records_[id], 1);
  modified_ = true;
  ++revision_;
  blockLists_.reset();
  subRecords_.reset();
  if (record.table == Table::kNone || record.kind == RecordKind::kTable) return id;
  TableIndex& members = tables_[static_cast<std::size_t>(record.table)];
  if (members.fresh()) {
    const NameId name = recordName(id);
    members.append(id, name == kNoName ? std::wstring() : names_.folded(name));
  } else {
    members.add(id);
  }
  if (record.table == Table::kLayer) locked_.clear();
  return id;
}

RecordId Drawing::enterImplied(const Record& made, RecordId id) {
  Record& record = records_[id];
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kMaterialised, record.flags});
  record.offset = made.offset;
  record.length = made.length;
  setState(id, kNoEdit, record.signature, record.flags | made.flags);
  return id;
}

base::Status Drawing::materialise(RecordId id) {
  const Record& record = records_[id];
  if (!record.implied()) return {};
  if (record.kind != RecordKind::kTableRecord) {
    return base::Failure{{}, L"The file does not hold this block as a record"};
  }
  ChangeScope scope(*this);
  const std::wstring name = names_.text(impliedNames_.at(id));
  const base::Result<RecordId> made = storage_->add(*this, {record.kind, record.table, kNoRecord, name, id});
  if (made) return {};
  scope.rollBack();
  return made.failure();
}

base::Result<RecordId> Drawing::addTableRecord(Table table, std::wstring_view name) {
  if (name.empty()) return base::Failure{{}, L"A name must not be empty"};
  ChangeScope scope(*this);
  if (const RecordId existing = find(table, name); existing != kNoRecord) {
    if (!records_[existing].implied())
      return base::Failure{std::wstring(name), L"The drawing has a record of this name"};
    if (const base::Status status = materialise(existing); !status) return status.failure();
    return existing;
  }
  base::Result<RecordId> made = storage_->add(*this, {RecordKind::kTableRecord, table, kNoRecord, name});
  if (!made) scope.rollBack();
  return made;
}

base::Result<RecordId> Drawing::defineBlock(std::wstring_view name, std::span<const Shape> shapes) {
  return storage_->defineBlock(*this, name, {}, shapes);
}

base::Result<RecordId> Drawing::defineBlock(std::wstring_view name, const Drawing& source) {
  if (auto exact = storage_->copyBlock(*this, name, source)) return *std::move(exact);
  ChangeScope scope(*this);
  base::Result<RecordId> block = TypedBlockCopy(*this, source).copyModelSpace(name);
  if (!block.ok()) scope.rollBack();
  return block;
}

Point Drawing::basePoint(RecordId block) const { return storage_->basePoint(*this, block); }

base::Result<RecordId> Drawing::addInsert(RecordId space, const NewInsert& insert) {
  if (insert.block >= records_.size() || records_[insert.block].table != Table::kBlock ||
      records_[insert.block].erased())
    return base::Failure{{}, L"The drawing has no block of this name"};
  if (!std::isfinite(insert.scale) || insert.scale == 0 || !std::isfinite(insert.rotation))
    return base::Failure{names_.text(recordName(insert.block)), L"The scale must not be 0"};
  return storage_->addInsert(*this, space, insert);
}

Geometry Drawing::geometry(RecordId entity) const {
  if (records_[entity].implied()) return {};
  return storage_->readGeometry(*this, entity);
}

std::optional<Variable> Drawing::dimVariable(RecordId id, const DimVariableInfo& variable) const {
  return storage_->dimVariable(*this, id, variable);
}

base::Status Drawing::setDimVariable(RecordId id, const DimVariableInfo& variable, const Variable& value) {
  return storage_->setDimVariable(*this, id, variable, value);
}

base::Status Drawing::removeDimOverride(RecordId id, const DimVariableInfo& variable) {
  return storage_->removeDimOverride(*this, id, variable);
}

std::optional<Variable> Drawing::headerVariable(std::string_view name) const {
  return storage_->headerVariable(*this, name);
}

base::Status Drawing::setHeaderVariable(std::string_view name, const Variable& value) {
  return storage_->setHeaderVariable(*this, name, value);
}

}  // namespace cad
