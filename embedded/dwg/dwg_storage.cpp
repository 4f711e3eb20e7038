#include "embedded/dwg/dwg_storage.h"

#include <algorithm>
#include <cassert>
#include <utility>

#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/entity_changes.h"
#include "embedded/dwg/field_texts.h"
#include "embedded/dwg/fields/extended_data.h"

namespace cad::dwg {

DwgStorage::DwgStorage(std::unique_ptr<DwgFile> file, std::vector<FileClass> classes)
    : file_(std::move(file)), classes_(std::move(classes)) {}

// --- Objects ---------------------------------------------------------------------------------------------

ObjectBytes DwgStorage::original(const Record& record) const {
  if ((record.flags & Record::kAdded) != 0) return kept(added_[record.offset].first, {});
  if ((record.flags & Record::kImplied) != 0) return {};
  if (record.kind == RecordKind::kFrame) {
    ObjectBytes header;
    header.data = file_->header();
    return header;
  }
  return file_->objectOf(file_->places()[record.offset]);
}

ObjectBytes DwgStorage::kept(EditId state, std::string_view original) const {
  const auto owner = std::make_shared<std::string>();
  ObjectBytes bytes = states_.object(state, original, *owner);
  bytes.owner = owner;
  return bytes;
}

ObjectBytes DwgStorage::object(const Record& record) const {
  if (record.edits == kNoEdit) return original(record);
  const auto owner = std::make_shared<std::string>();
  ObjectBytes bytes = object(record, *owner);
  bytes.owner = owner;
  return bytes;
}

ObjectBytes DwgStorage::object(const Record& record, std::string& buffer) const {
  if (const ValueState state = states_.values(record.edits); state.base != record.edits) {
    const Entity* const entity = this->entity(record, state);
    assert(entity != nullptr);  // no other record is given values
    WrittenObject now = changeEntity(entity->frame, entity->head, state.values, std::move(buffer));
    buffer = std::move(now.data);
    ObjectBytes bytes;
    bytes.data = buffer, bytes.handleBits = now.handleBits;
    return bytes;
  }
  const ObjectBytes original = this->original(record);
  return record.edits == kNoEdit ? original : states_.object(record.edits, original.data, buffer);
}

ObjectType DwgStorage::typeOf(const Record& record) const {
  return dwg::typeOf(static_cast<std::uint16_t>(record.length), classes_);
}

base::Result<ObjectFrame> DwgStorage::frame(const Record& record) const {
  const ObjectBytes bytes = object(record);
  base::Result<ObjectFrame> frame = readFrame(bytes.data, bytes.handleBits, version(), classes_);
  if (frame.ok()) frame.value().owner = bytes.owner;
  return frame;
}

DwgStorage::LookedAt DwgStorage::lookedAt(const Record& record) {
  return {record.offset, record.edits, static_cast<std::uint8_t>(record.flags & Record::kAdded)};
}

const Fields& DwgStorage::look(Look& look, const Record& record, Fields (*read)(const ObjectFrame&)) const {
  const LookedAt at = lookedAt(record);
  if (look.fields && look.at == at) return *look.fields;
  look.at = at;
  const bool isObject = record.kind != RecordKind::kFrame && !record.implied();
  const base::Result<ObjectFrame> frame =
      isObject ? this->frame(record) : base::Result<ObjectFrame>(base::Failure{});
  look.owner = frame.ok() ? frame.value().owner : nullptr;
  look.fields.emplace(frame.ok() ? read(frame.value()) : Fields({}, version(), 0));
  return *look.fields;
}

const DwgStorage::Entity* DwgStorage::entity(const Record& record) const {
  return entity(record, states_.values(record.edits));
}

const DwgStorage::Entity* DwgStorage::entity(const Record& record, const ValueState& state) const {
  if (record.kind != RecordKind::kEntity && record.kind != RecordKind::kSubEntity) return nullptr;
  EntityLook& look = entityLook_;
  Record base = record;
  base.edits = state.base;
  if (const LookedAt at = lookedAt(base); !look.isRead || look.at != at) {
    look.at = at;
    look.bytes = object(base, look.buffer);
    look.isRead = true;
    look.entity.read(look.bytes, version(), classes_);
  }
  look.entity.values = state.values;
  return look.entity.head.intact ? &look.entity : nullptr;
}

void DwgStorage::Entity::read(const ObjectBytes& bytes, Version version,
                              const std::vector<FileClass>& classes) {
  frame = {};
  const bool isFramed = readFrame(frame, bytes.data, bytes.handleBits, version, classes) == nullptr;
  head = isFramed ? readEntityHead(frame) : EntityHead();
  lastName_ = {};
}

const FoundField* DwgStorage::Entity::field(std::string_view name) const {
  if (lastName_ != name) {
    lastName_ = name;
    lastField_ = findOwnField(frame, head.dataEnd, head.handlesEnd, name);
  }
  return lastField_ ? &*lastField_ : nullptr;
}

const Fields& DwgStorage::fields(const Record& record) const { return look(look_, record, readFields); }

const Fields& DwgStorage::commonFields(const Record& record) const {
  return look(commonLook_, record, readCommonFields);
}

std::vector<Handle> DwgStorage::references(const Record& record) const {
  std::vector<Handle> handles;
  const base::Result<ObjectFrame> frame = this->frame(record);
  if (!frame.ok()) return handles;
  constexpr std::uint32_t kLeast = 8;  // bits of a reference
  BitReader reader(frame.value().data, frame.value().handleBegin, frame.value().handleEnd);
  while (reader.left() >= kLeast) {
    const HandleReference reference = reader.h();
    if (reader.failed()) break;
    handles.push_back(reference.absolute(frame.value().handle));
  }
  const base::Result<std::vector<ExtendedData>> extended = readExtendedData(frame.value());
  if (!extended.ok()) return handles;
  for (const ExtendedData& data : extended.value()) {
    handles.push_back(data.application.absolute(frame.value().handle));
    const base::Result<std::vector<ExtendedValue>> values = decodeExtended(data.bytes, version());
    if (!values.ok()) continue;
    for (const ExtendedValue& value : values.value())
      if (const auto* reference = std::get_if<HandleReference>(&value.value))
        handles.push_back(reference->value);
  }
  return handles;
}

RecordId DwgStorage::recordOf(Handle handle) const {
  const std::span<const ObjectPlace> places = file_->places();
  const auto found = std::ranges::lower_bound(places, handle, {}, &ObjectPlace::handle);
  if (found != places.end() && found->handle == handle)
    return records_.byPlace[static_cast<std::size_t>(found - places.begin())];
  const auto added = addedByHandle_.find(handle);
  return added == addedByHandle_.end() ? kNoRecord : added_[added->second].record;
}

RecordId DwgStorage::blockOf(Handle entry) const {
  const auto found = records_.blockOfEntry.find(entry);
  return found == records_.blockOfEntry.end() ? kNoRecord : found->second;
}

Handle DwgStorage::entryOf(const Record& block) const {
  const auto found = records_.entryOfBlock.find(handle(block).value_or(0));
  return found == records_.entryOfBlock.end() ? 0 : found->second;
}

RecordId DwgStorage::control(Table table) const {
  const auto found = records_.control.find(table);
  return found == records_.control.end() ? kNoRecord : found->second;
}

std::optional<Record> DwgStorage::firstState(Handle handle) const {
  Record record;
  record.kind = RecordKind::kOther;
  const std::span<const ObjectPlace> places = file_->places();
  const auto found = std::ranges::lower_bound(places, handle, {}, &ObjectPlace::handle);
  if (found != places.end() && found->handle == handle) {
    record.offset = static_cast<std::uint64_t>(found - places.begin());
  } else if (const auto added = addedByHandle_.find(handle); added != addedByHandle_.end()) {
    record.offset = added->second;
    record.flags = Record::kAdded;
  } else {
    return std::nullopt;
  }
  const base::Result<ObjectFrame> frame = this->frame(record);
  if (!frame.ok()) return std::nullopt;
  record.length = frame.value().type.number;
  return record;
}

const std::string& DwgStorage::firstName(Handle handle) const {
  static const std::string kNone;
  if (const auto known = firstNames_.find(handle); known != firstNames_.end()) return known->second;
  const std::optional<Record> record = firstState(handle);
  if (!record) return kNone;
  // Of the entities, which are many, blocks alone have names.
  const ObjectType type = typeOf(*record);
  if (type.isEntity && type.kind != ObjectKind::kBlock) return kNone;
  std::string& own = firstNames_[handle];
  const Fields& fields = this->fields(*record);
  if (const Field* name = fields.find("name")) own = storedText(name->value);
  return own;
}

// In the table's entry the number of an anonymous block and of an inactive paper space is missing; the
// beginning of the block has it, but for those that became anonymous later. Then it is that of the entry.
std::string DwgStorage::blockName(Handle entry) const {
  const std::string& listed = firstName(entry);
  if (!listed.starts_with('*')) return listed;
  const auto begin = records_.beginOfEntry.find(entry);
  const std::string& own = begin == records_.beginOfEntry.end() ? listed : firstName(begin->second);
  if (own.starts_with(listed)) return own;
  const auto index = records_.indexOfEntry.find(entry);
  return index == records_.indexOfEntry.end() ? listed : listed + std::to_string(index->second);
}

std::string_view DwgStorage::typeName(const Record& record) const {
  if (record.kind == RecordKind::kFrame || record.implied()) return {};
  return typeOf(record).name;
}

std::optional<Handle> DwgStorage::handle(const Record& record) const {
  if (record.kind == RecordKind::kFrame || record.implied()) return std::nullopt;
  if ((record.flags & Record::kAdded) != 0) return added_[record.offset].handle;
  return file_->places()[record.offset].handle;
}

// --- Texts -----------------------------------------------------------------------------------------------

Value DwgStorage::extendedText(std::string_view stored) const {
  if (!hasWideTexts(version())) return std::string(stored);
  return toUtf16(base::fromUtf8(stored));
}

Value DwgStorage::fieldText(std::string_view stored) const {
  Value text = extendedText(stored);
  if (!records_.textsEndWithZero || stored.empty()) return text;
  if (auto* wide = std::get_if<std::u16string>(&text))
    *wide += u'\0';
  else
    std::get<std::string>(text) += '\0';
  return text;
}

std::wstring DwgStorage::text(const Value& value) const {
  return decodeStored(storedText(value), facts().codePage);
}

}  // namespace cad::dwg
