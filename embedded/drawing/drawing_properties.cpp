// Typed properties of the drawing's records.

#include <algorithm>
#include <cmath>

#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/references.h"
#include "embedded/drawing/stored_text.h"

namespace cad {

Table tableNamedBy(Property property) {
  switch (property) {
    case Property::kLayer:
      return Table::kLayer;
    case Property::kLinetype:
    case Property::kLayerLinetype:
      return Table::kLinetype;
    case Property::kTextStyle:
      return Table::kTextStyle;
    case Property::kDimStyle:
      return Table::kDimStyle;
    case Property::kDimBlock:
    case Property::kBlockName:
      return Table::kBlock;
    default:
      return Table::kNone;
  }
}

namespace {

std::wstring wide(std::string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

std::optional<double> Drawing::real(RecordId id, Property property) const {
  if (records_[id].implied()) return std::nullopt;
  const StoredValue value = storage_->property(records_[id], property);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return std::nullopt;
}

std::optional<std::int64_t> Drawing::integer(RecordId id, Property property) const {
  const Record& record = records_[id];
  if (record.implied()) return std::nullopt;
  if (property == Property::kColorIndex && record.signature != 0) {
    const std::int16_t color = signatures_[record.signature].color;
    if (color == Signature{}.color) return std::nullopt;
    return color;
  }
  const StoredValue value = storage_->property(record, property);
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number;
  return std::nullopt;
}

std::optional<std::wstring> Drawing::text(RecordId id, Property property) const {
  const Record& record = records_[id];
  if (propertyInfo(property).type == PropertyType::kName) {
    const NameId found = name(id, property);
    if (found == kNoName) return std::nullopt;
    return names_.text(found);
  }
  if (record.implied()) return std::nullopt;
  const StoredValue value = storage_->property(record, property);
  if (const auto* stored = std::get_if<std::string>(&value)) return decodeStored(*stored, facts().codePage);
  return std::nullopt;
}

NameId Drawing::name(RecordId id, Property property) const {
  const Record& record = records_[id];
  if (record.implied()) return property == Property::kName ? impliedNames_.at(id) : kNoName;
  if (record.signature != 0) {
    const Signature& signature = signatures_[record.signature];
    const bool entity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
    if (property == Property::kLayer) return signature.layer;
    if (property == Property::kLinetype) return entity ? signature.linetype : kNoName;
    if (property == Property::kTextStyle) return signature.style;
  }
  return nameOf(storage_->property(record, property));
}

NameId Drawing::nameOf(const StoredValue& value) const {
  if (const auto* reference = std::get_if<Reference>(&value))
    return reference->record == kNoRecord ? kNoName : recordName(reference->record);
  const auto* stored = std::get_if<std::string>(&value);
  return stored == nullptr ? kNoName : names_.intern(std::string_view(*stored));
}

RecordId Drawing::reference(RecordId id, Property property) const {
  const Table table = tableNamedBy(property);
  return table == Table::kNone ? kNoRecord : find(table, name(id, property));
}

bool Drawing::canHold(RecordId id, Property property) const {
  const Record& record = records_[id];
  if (!record.implied()) return storage_->canHold(record, property);
  // What an implied record could hold is what any record of its table could.
  for (const RecordId other : tableRecords(record.table)) {
    if (!records_[other].implied()) return storage_->canHold(records_[other], property);
  }
  return true;
}

base::Status Drawing::checkValue(RecordId, Property property, double value) const {
  const PropertyInfo& info = propertyInfo(property);
  const bool color = property == Property::kLayerColor && value == 0;
  if (std::isfinite(value) && value >= info.least && value <= info.most && !color) return {};
  return base::Failure{{}, L"The " + wide(info.name) + L" is out of its limits"};
}

base::Status Drawing::setReal(RecordId id, Property property, double value) {
  if (const base::Status status = checkValue(id, property, value); !status) return status;
  if (real(id, property) == value) return {};
  return setStored(id, property, value);
}

base::Status Drawing::setInteger(RecordId id, Property property, std::int64_t value) {
  if (const base::Status status = checkValue(id, property, static_cast<double>(value)); !status)
    return status;
  return setStored(id, property, value);
}

base::Status Drawing::setText(RecordId id, Property property, std::wstring_view value) {
  if (const Table table = tableNamedBy(property); table != Table::kNone) {
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
  const Table table = tableNamedBy(property);
  if (table == Table::kNone || value >= records_.size() || records_[value].table != table ||
      records_[value].erased()) {
    return base::Failure{{}, L"This is no record for the " + wide(propertyInfo(property).name)};
  }
  const NameId present = name(id, property), wanted = recordName(value);
  if (present == wanted) return {};
  if (present != kNoName && names_.folded(present) == names_.folded(wanted)) return {};
  return setStored(id, property, Reference{value});
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
  const auto state = storage_->setProperty(*this, record, property, value);
  if (!state) return state.failure();
  if (state.value() == record.edits) return {};
  journal_.add({id, record.edits, record.signature, JournalEntry::Kind::kState, record.flags});
  setState(id, state.value(), signatureWith(record, property, value), record.flags);
  return {};
}

SignatureId Drawing::signatureWith(const Record& record, Property property, const StoredValue& value) {
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

}  // namespace cad
