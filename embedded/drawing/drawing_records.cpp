#include "embedded/drawing/drawing_records.h"

#include <utility>

#include "embedded/drawing/stored_text.h"

namespace cad {

DrawingRecords::DrawingRecords(std::unique_ptr<RecordStorage> storage, LoadedRecords loaded)
    : storage_(std::move(storage)),
      records_(std::move(loaded.records)),
      signatures_(std::move(loaded.signatures)),
      names_(std::move(loaded.names)),
      modelSpace_(loaded.modelSpace),
      paperSpace_(loaded.paperSpace) {}

RecordId DrawingRecords::append(const Record& record) {
  records_.push_back(record);
  return static_cast<RecordId>(records_.size() - 1);
}

std::string_view DrawingRecords::typeName(RecordId id) const {
  const Record& record = records_[id];
  if (record.signature != 0) return names_.stored(signatures_[record.signature].type);
  if (record.implied()) return {};
  return storage_->typeName(record);
}

std::optional<Handle> DrawingRecords::handle(RecordId id) const { return storage_->handle(records_[id]); }

RecordId DrawingRecords::findHandle(Handle handle) const {
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

std::optional<double> DrawingRecords::real(RecordId id, Property property) const {
  if (records_[id].implied()) return std::nullopt;
  const StoredValue value = storage_->property(records_[id], property);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return std::nullopt;
}

std::optional<std::int64_t> DrawingRecords::integer(RecordId id, Property property) const {
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

std::optional<std::wstring> DrawingRecords::text(RecordId id, Property property) const {
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

NameId DrawingRecords::name(RecordId id, Property property) const {
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

NameId DrawingRecords::nameOf(const StoredValue& value) const {
  if (const auto* reference = std::get_if<Reference>(&value))
    return reference->record == kNoRecord ? kNoName : recordName(reference->record);
  const auto* stored = std::get_if<std::string>(&value);
  return stored == nullptr ? kNoName : names_.intern(std::string_view(*stored));
}

NameId DrawingRecords::recordName(RecordId id) const {
  const auto known = recordNames_.find(id);
  if (known != recordNames_.end()) return known->second;
  const NameId name = nameInFile(id);
  if (records_[id].hasTableName()) recordNames_[id] = name;
  return name;
}

NameId DrawingRecords::nameInFile(RecordId id) const {
  const auto implied = impliedNames_.find(id);
  const std::uint8_t flags = records_[id].flags;
  if (implied != impliedNames_.end() && (flags & Record::kAdded) == 0) return implied->second;
  // The layouts' blocks go by one name, however the file spells it.
  if (id == modelSpace_) return names_.intern(std::wstring_view(kModelSpaceName));
  if (id == paperSpace_) return names_.intern(std::wstring_view(kPaperSpaceName));
  return name(id, Property::kName);
}

}  // namespace cad
