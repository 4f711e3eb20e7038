#include "embedded/drawing/drawing.h"

#include <cmath>
#include <unordered_map>
#include <utility>

#include "base/fold.h"
#include "embedded/drawing/stored_text.h"

namespace cad {
namespace {

bool isDrawn(RecordKind kind) {
  return kind == RecordKind::kEntity || kind == RecordKind::kSubEntity || kind == RecordKind::kBlockBegin ||
         kind == RecordKind::kBlockEnd;
}

std::wstring wide(std::string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

Drawing::Drawing(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded)
    : DrawingChanges(std::move(storage), std::move(loaded)) {}

Drawing::~Drawing() = default;

base::Status Drawing::save(const std::filesystem::path& target) {
  base::Status status = storage_->save(target, records_);
  if (!status) return status;
  path_ = target;
  noteSaved();
  return status;
}

// --- Properties and variables

base::Status Drawing::checkValue(Property property, double value) const {
  const PropertyInfo& info = propertyInfo(property);
  const bool color = property == Property::kLayerColor && value == 0;
  if (std::isfinite(value) && value >= info.least && value <= info.most && !color) return {};
  return base::Failure{{}, L"The " + wide(info.name) + L" is out of its limits"};
}

base::Status Drawing::setReal(RecordId id, Property property, double value) {
  if (const base::Status status = checkValue(property, value); !status) return status;
  if (real(id, property) == value) return {};
  return setStored(id, property, value);
}

base::Status Drawing::setInteger(RecordId id, Property property, std::int64_t value) {
  if (const base::Status status = checkValue(property, static_cast<double>(value)); !status) return status;
  return setStored(id, property, value);
}

base::Status Drawing::setText(RecordId id, Property property, std::wstring_view value) {
  if (const Table table = propertyInfo(property).names; table != Table::kNone) {
    const NameId present = name(id, property);
    if (present != kNoName && base::equalFolded(names_.text(present), value)) return {};
    const RecordId named = find(table, value);
    if (named != kNoRecord) return setReference(id, property, named);
    return base::Failure{std::wstring(value),
                         L"The drawing has no such " + wide(propertyInfo(property).name)};
  }
  if (const auto present = text(id, property); present && *present == value) return {};
  return setStored(id, property, encodeStored(value, facts().codePage));
}

base::Status Drawing::setReference(RecordId id, Property property, RecordId value) {
  const NameId wanted = nameForReference(value, propertyInfo(property).names), present = name(id, property);
  if (wanted == kNoName)
    return base::Failure{{}, L"This is no record for the " + wide(propertyInfo(property).name)};
  if (present == wanted) return {};
  if (present != kNoName && names_.folded(present) == names_.folded(wanted)) return {};
  return setStored(id, property, Reference{value});
}

base::Status Drawing::setLastVertex(RecordId leader, const Point& at) {
  const base::Result<EditId> state = storage_->setLastVertex(records_[leader], at);
  if (!state.ok()) return state.failure();
  setEdits(leader, state.value());
  return {};
}

void Drawing::setTextMiddle(RecordId dimension, const Point& at) {
  const EditId state = storage_->setTextMiddle(records_[dimension], at);
  if (state != records_[dimension].edits) setEdits(dimension, state);
}

std::optional<Variable> Drawing::dimVariable(RecordId id, const DimVariableInfo& variable) const {
  return storage_->dimVariable(*this, id, variable);
}

std::vector<DimValue> Drawing::dimVariables(const Record& record) const {
  return record.implied() ? std::vector<DimValue>() : storage_->dimVariables(*this, record);
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

// --- States of records ----------------------------------------------------------------------------------

void Drawing::setEdits(RecordId id, EditId edits) {
  const Record& record = records_[id];
  if (record.edits == edits) return;
  Record state = record;
  state.edits = edits;
  const SignatureId signature =
      record.signature == 0 ? 0 : signatures_.intern(storage_->readSignature(*this, state));
  change(id, edits, signature, record.flags);
}

void Drawing::setUnselectedEdits(RecordId id, EditId edits) {
  const Record& record = records_[id];
  if (record.edits != edits) change(id, edits, record.signature, record.flags);
}

base::Status Drawing::setStored(RecordId id, Property property, const StoredValue& value) {
  // An implied record of a table gets bytes of its own when one of its properties becomes another.
  if (records_[id].implied()) {
    ChangeScope scope(*this);
    base::Status status = materialise(id);
    if (status) status = setStored(id, property, value);
    if (!status || records_[id].edits == kNoEdit) scope.rollBack();
    return status;
  }
  const Record record = records_[id];
  const std::size_t before = journal().size();
  const auto state = storage_->setProperty(*this, record, property, value);
  if (!state) return state.failure();
  if (state.value() == record.edits) return {};
  // What the property needs elsewhere in the drawing is undone with it.
  const bool brought = journal().size() != before && !journal().groupOpen();
  if (brought) journal().groupSince(before);
  change(id, state.value(), signatureWith(record, property, value), record.flags);
  if (brought) journal().endGroup();
  return {};
}

void Drawing::layerRenamed(NameId from, NameId to) {
  const std::wstring old = names_.folded(from);
  std::unordered_map<SignatureId, SignatureId> renamed;
  for (RecordId id = 0; id < records_.size(); ++id) {
    const Record& record = records_[id];
    if (record.signature == 0) continue;
    Signature signature = signatures_[record.signature];
    if (signature.layer == kNoName || names_.folded(signature.layer) != old) continue;
    signature.layer = to;
    const auto [known, isNew] = renamed.try_emplace(record.signature);
    if (isNew) known->second = signatures_.intern(signature);
    change(id, record.edits, known->second, record.flags);
  }
}

// --- Records that the storage has made ------------------------------------------------------------------

RecordId Drawing::enter(Record record, RecordId implied) {
  record.flags |= Record::kAdded;
  RecordId id = implied;
  if (implied != kNoRecord) {
    addImplied(record, implied);
  } else {
    if (isDrawn(record.kind) && record.signature == 0)
      record.signature = signatures_.intern(storage_->readSignature(*this, record));
    id = addNew(record);
  }
  if (handles_) {
    if (const auto own = storage_->handle(records_[id])) handles_->try_emplace(*own, id);
  }
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
  const base::Result<RecordId> made = storage_->add(*this, record.table, name, id);
  if (made) return {};
  scope.rollBack();
  return made.failure();
}

}  // namespace cad
