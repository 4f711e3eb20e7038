// Setting typed properties.

#include <algorithm>
#include <cmath>
#include <string>

#include "base/fold.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/angles.h"
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
  return storage.facts().damage.hasWrongChecksum(storage.handle(record).value_or(0));
}

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

void changeLinetype(const Drawing& drawing, const Fields& fields, RecordId linetype, FieldChanges& changes) {
  const NameId name = drawing.recordName(linetype);
  const std::wstring& folded = drawing.names().folded(name);
  const bool hasFlags = fields.find("linetype flags") != nullptr;
  LinetypeKind kind = LinetypeKind::kNamed;
  if (folded == L"BYLAYER") kind = LinetypeKind::kByLayer;
  if (folded == L"BYBLOCK" && hasFlags) kind = LinetypeKind::kByBlock;
  if (folded == L"CONTINUOUS" && hasFlags) kind = LinetypeKind::kContinuous;
  if (hasFlags)
    changes.set("linetype flags", static_cast<int>(kind));
  else
    changes.set("linetype by layer", kind == LinetypeKind::kByLayer);
  if (kind == LinetypeKind::kNamed) changes.setHandle("linetype", drawing.handle(linetype).value_or(0));
}

base::Status changeReference(Drawing& drawing, const DwgStorage& storage, const Record& record,
                             const PropertyField& place, const StoredValue& value, FieldChanges& changes) {
  const base::Result<RecordId> named = referredTo(drawing, place.property, value);
  if (!named.ok()) return named.failure();
  const Record& target = drawing.record(named.value());
  if (place.property == Property::kLinetype) {
    changeLinetype(drawing, storage.commonFields(record), named.value(), changes);
  } else if (place.form == FieldForm::kBlock) {
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

void changePlain(const DwgStorage& storage, const PropertyField& place, const StoredValue& value,
                 FieldChanges& changes) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    changes.set(place.field, storage.fieldText(*text));
  } else if (const auto* real = std::get_if<double>(&value)) {
    changes.set(place.field, Value(place.form == FieldForm::kAngle ? radiansOf(*real) : *real));
  } else if (const auto* integer = std::get_if<std::int64_t>(&value)) {
    changes.set(place.field, Value(*integer));
  }
}

}  // namespace

EditId DwgStorage::stateBehind(const Record& record, std::string_view present, const WrittenObject& now) {
  if (!states_.isLast(record.edits)) return states_.add(record.edits, present, now.data, now.handleBits);
  const ObjectBytes original = this->original(record);
  return states_.add(kNoEdit, original.data, now.data, now.handleBits);
}

base::Result<EditId> DwgStorage::changed(const Record& record, const FieldChanges& changes) {
  const auto refused = [] { return base::Failure{{}, L"The object is damaged: its checksum is wrong"}; };
  if (const Entity* entity = this->entity(record)) {
    const ObjectFrame& frame = entity->frame;
    if (auto now = changeEntity(frame, entity->head, changes)) {
      if (now->data == frame.data && now->handleBits == entity->handleBits) return record.edits;
      if (isDamaged(*this, record)) return refused();
      const EditId state = stateBehind(record, frame.data, *now);
      lookAhead(record, state, std::move(*now));
      return state;
    }
  }
  const base::Result<ObjectFrame> frame = this->frame(record);
  if (!frame.ok()) return frame.failure();
  const base::Result<WrittenObject> written = rewrite(frame.value(), changes);
  if (!written.ok()) return written.failure();
  const ObjectBytes present = object(record);
  const bool isSame =
      written.value().data == present.data && written.value().handleBits == present.handleBits;
  if (isSame) return record.edits;
  if (isDamaged(*this, record)) return refused();
  return stateBehind(record, present.data, written.value());
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
  const StoredValue present = this->property(record, property);
  const bool same = present == value && !dropsTrueColor(*this, record, property);
  if (same || (std::holds_alternative<std::monostate>(present) && !isReference(*place) &&
               isDefault(record.kind, property, value)))
    return record.edits;
  FieldChanges changes;
  base::Status status;
  if (std::optional<Value> first = firstAngle(record, *place, value)) {
    changes.set(place->field, *std::move(first));
  } else if (isReference(*place)) {
    status = changeReference(drawing, *this, record, *place, value, changes);
  } else if (place->form == FieldForm::kSpecial) {
    status = changeSpecial(drawing, *this, record, property, value, changes);
  } else {
    changePlain(*this, *place, value, changes);
  }
  if (!status) return status.failure();
  return changes.empty() ? base::Result<EditId>(record.edits) : changed(record, changes);
}

}  // namespace cad::dwg
