// Setting typed properties.

#include <algorithm>
#include <cassert>
#include <cmath>
#include <string>

#include "base/fold.h"
#include "embedded/drawing/angles.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/entity_changes.h"
#include "embedded/dwg/property_fields.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

constexpr double kDefaultWeight = -3;  // of layers; entities follow their layer

std::wstring ascii(std::string_view text) { return std::wstring(text.begin(), text.end()); }

// Whether a record that cannot have the property already looks as with this value.
bool isDefault(RecordKind kind, Property property, const StoredValue& value) {
  const PropertyInfo& info = propertyInfo(property);
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    const bool layer = kind == RecordKind::kTableRecord && property == Property::kLineWeight;
    return static_cast<double>(*number) == (layer ? kDefaultWeight : info.defaultValue);
  }
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr && text->empty();
}

// A number takes the place of a true colour even when it is the one that stands for that.
bool dropsTrueColor(const DwgStorage& storage, const Record& record, Property property) {
  if (property == Property::kColorIndex) return storage.commonFields(record).color("color").isTrue();
  return property == Property::kLayerColor && storage.fields(record).color("color").isTrue();
}

// What rules make of values that may be damaged is not to be trusted.
bool isDamaged(const DwgStorage& storage, const Record& record) {
  const DamagedObjects& damage = storage.facts().damage;
  return !damage.withWrongChecksum.empty() && damage.hasWrongChecksum(storage.handle(record).value_or(0));
}

base::Failure damaged() { return {{}, L"The object is damaged: its checksum is wrong"}; }

bool hasNoCharacter(const StoredValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr && text->find('\0') != std::string::npos;
}

// The record that is referred to, in the file.
base::Result<RecordId> referredTo(Drawing& drawing, Property property, const StoredValue& value) {
  RecordId id = kNoRecord;
  if (const auto* reference = std::get_if<Reference>(&value)) id = reference->record;
  if (const auto* name = std::get_if<std::string>(&value))
    id = drawing.findStored(propertyInfo(property).names, *name);
  if (id == kNoRecord)
    return base::Failure{{}, L"The drawing has no such " + ascii(propertyInfo(property).name)};
  if (const base::Status status = drawing.materialise(id); !status) return status.failure();
  return id;
}

LinetypeKind linetypeKindFor(const Drawing& drawing, RecordId linetype, bool hasFlags) {
  const std::wstring& folded = drawing.names().folded(drawing.recordName(linetype));
  if (folded == L"BYLAYER") return LinetypeKind::kByLayer;
  if (folded == L"BYBLOCK" && hasFlags) return LinetypeKind::kByBlock;
  if (folded == L"CONTINUOUS" && hasFlags) return LinetypeKind::kContinuous;
  return LinetypeKind::kNamed;
}

// Of one of the properties that isEntityValue() names.
base::Result<EntityValues> entityValues(Drawing& drawing, Version version, Property property,
                                        const StoredValue& value) {
  EntityValues values;
  const auto* integer = std::get_if<std::int64_t>(&value);
  const auto* real = std::get_if<double>(&value);
  switch (property) {
    case Property::kLayer:
    case Property::kLinetype: {
      const base::Result<RecordId> named = referredTo(drawing, property, value);
      if (!named.ok()) return named.failure();
      const Handle handle = drawing.handle(named.value()).value_or(0);
      if (property == Property::kLayer) return values.layer = handle, values;
      values.linetypeKind = linetypeKindFor(drawing, named.value(), version >= Version::kR2000);
      if (values.linetypeKind == LinetypeKind::kNamed) values.linetype = handle;
      return values;
    }
    case Property::kColorIndex:
      values.color = static_cast<std::int16_t>(*integer);
      return values;
    case Property::kLineWeight: {
      const std::optional<std::int64_t> stored = storedLineWeight(static_cast<int>(*integer));
      if (!stored) return base::Failure{{}, L"There is no such lineweight"};
      values.lineWeight = static_cast<std::uint8_t>(*stored);
      return values;
    }
    case Property::kLinetypeScale:
      values.linetypeScale = *real;
      return values;
    case Property::kInvisible:
      values.invisible = static_cast<std::int16_t>(*integer);
      return values;
    case Property::kTextHeight:
      values.height = TextHeight{*real, {}, false};
      return values;
    default:
      assert(!"a value of entities");
      return values;
  }
}

base::Status changeReference(Drawing& drawing, const DwgStorage& storage, const PropertyField& place,
                             const StoredValue& value, FieldChanges& changes) {
  const base::Result<RecordId> named = referredTo(drawing, place.property, value);
  if (!named.ok()) return named.failure();
  const Record& target = drawing.record(named.value());
  if (place.form == FieldForm::kBlock) {
    const Handle entry = storage.entryOf(target);
    if (entry == 0) return base::Failure{{}, L"The block has no table entry"};
    changes.setHandle(place.field, entry);
  } else {
    changes.setHandle(place.field, storage.handle(target).value_or(0));
  }
  return {};
}

bool isReference(const PropertyField& place) {
  return place.form == FieldForm::kReference || place.form == FieldForm::kBlock ||
         place.property == Property::kLinetype;
}

// What EntityValues have; a block's layer is changed as an entity's is.
bool isEntityValue(RecordKind kind, Property property) {
  switch (property) {
    case Property::kLayer:
    case Property::kTextHeight:
      return true;
    case Property::kLinetype:
    case Property::kColorIndex:
    case Property::kLineWeight:
    case Property::kLinetypeScale:
    case Property::kInvisible:
      return kind == RecordKind::kEntity || kind == RecordKind::kSubEntity;
    default:
      return false;
  }
}

void changePlain(const DwgStorage& storage, const PropertyField& place, const StoredValue& value,
                 FieldChanges& changes) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    changes.set(place.field, storage.fieldText(*text));
  } else if (const auto* real = std::get_if<double>(&value)) {
    changes.set(place.field, Value(place.form == FieldForm::kAngle ? *real * kRadiansPerDegree : *real));
  } else if (const auto* integer = std::get_if<std::int64_t>(&value)) {
    changes.set(place.field, Value(*integer));
  }
}

}  // namespace

EditId DwgStorage::stateBehind(const Record& record, const WrittenObject& now) {
  Record from = record;
  from.edits = states_.base(record.edits);
  if (states_.isLast(from.edits)) from.edits = kNoEdit;
  std::string buffer;
  return states_.add(from.edits, object(from, buffer).data, now.data, now.handleBits);
}

base::Result<EditId> DwgStorage::changed(const Record& record, const FieldChanges& changes) {
  const base::Result<ObjectFrame> frame = this->frame(record);
  if (!frame.ok()) return frame.failure();
  const base::Result<WrittenObject> written = rewrite(frame.value(), changes);
  if (!written.ok()) return written.failure();
  std::string buffer;
  const ObjectBytes present = object(record, buffer);
  const bool isSame =
      written.value().data == present.data && written.value().handleBits == present.handleBits;
  if (isSame) return record.edits;
  if (isDamaged(*this, record)) return damaged();
  return stateBehind(record, written.value());
}

bool DwgStorage::isPlain(const Record& record) const {
  return (record.flags & kPlainEntity) != 0 && states_.base(record.edits) == kNoEdit;
}

bool DwgStorage::fits(const Record& record, EntityValues& values) const {
  if (isPlain(record) && !values.height) return fit(values, version());
  const Entity* const entity = this->entity(record);
  if (entity == nullptr || !fit(values, version(), entity->head)) return false;
  if (!values.height) return true;
  const FoundField* const field = entity->field("height");
  if (field == nullptr || !std::holds_alternative<double>(field->value)) return false;
  values.height->at = {field->begin, field->end};
  values.height->isRaw = field->type == BitType::kRD;
  return values.height->isRaw || field->type == BitType::kBD;
}

std::optional<base::Result<EditId>> DwgStorage::changed(const Record& record, EntityValues values) {
  if (!fits(record, values)) return std::nullopt;
  if (isDamaged(*this, record)) return damaged();
  ValueState state = states_.values(record.edits);
  state.values.take(values);
  return states_.add(state);
}

// As it was in the file: several numbers there can make the same angle.
std::optional<Value> DwgStorage::firstAngle(const Record& record, const PropertyField& place,
                                            const StoredValue& wanted) const {
  if (place.form != FieldForm::kAngle && place.property != Property::kRotation) return std::nullopt;
  Record first = record;
  first.edits = kNoEdit;
  if (property(first, place.property) != wanted) return std::nullopt;
  const Field* field = fields(first).find(place.field);
  return field == nullptr ? std::nullopt : std::optional(field->value);
}

bool DwgStorage::isSame(const Drawing& drawing, const Record& record, const PropertyField& place,
                        const StoredValue& value) const {
  // Of a plain entity its signature tells it.
  const bool isColor = place.property == Property::kColorIndex;
  if (isColor && isPlain(record))
    return drawing.signature(record.signature).color == std::get<std::int64_t>(value);
  if (place.property == Property::kLayer && isPlain(record)) {
    const auto* layer = std::get_if<Reference>(&value);
    if (layer != nullptr && drawing.signature(record.signature).layer != drawing.recordName(layer->record))
      return false;
  }
  const StoredValue present = property(record, place.property);
  if (present == value && !dropsTrueColor(*this, record, place.property)) return true;
  return std::holds_alternative<std::monostate>(present) && !isReference(place) &&
         isDefault(record.kind, place.property, value);
}

base::Result<EditId> DwgStorage::setProperty(Drawing& drawing, const Record& record, Property property,
                                             const StoredValue& value) {
  const std::string_view type = typeName(record);
  const PropertyField* place = findField(record.kind, type, property);
  const auto refused = [&](const std::wstring& reason) {
    return base::Failure{{}, reason + ascii(propertyInfo(property).name)};
  };
  if (place == nullptr) return refused(L"A record of the type " + ascii(type) + L" has no ");
  if (version() < place->since) {
    if (isDefault(record.kind, property, value)) return record.edits;
    return refused(L"A drawing of this version cannot hold the property ");
  }
  if (hasNoCharacter(value)) return refused(L"There is a line break in the ");
  if (place->form == FieldForm::kEntry) return refused(L"A drawing of this format cannot change the ");
  if (isSame(drawing, record, *place, value)) return record.edits;
  FieldChanges changes;
  base::Status status;
  if (isEntityValue(record.kind, property)) {
    const base::Result<EntityValues> values = entityValues(drawing, version(), property, value);
    if (!values.ok()) return values.failure();
    if (auto state = changed(record, values.value())) return *std::move(state);
    changes = asFields(values.value(), version());
  } else if (std::optional<Value> first = firstAngle(record, *place, value)) {
    changes.set(place->field, *std::move(first));
  } else if (isReference(*place)) {
    status = changeReference(drawing, *this, *place, value, changes);
  } else if (place->form == FieldForm::kSpecial) {
    status = changeSpecial(drawing, *this, record, property, value, changes);
  } else {
    changePlain(*this, *place, value, changes);
  }
  if (!status) return status.failure();
  return changes.empty() ? base::Result<EditId>(record.edits) : changed(record, changes);
}

}  // namespace cad::dwg
