// Reading and writing of typed properties.

#include <string>

#include "embedded/drawing/angles.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/entity_head.h"
#include "embedded/dwg/field_texts.h"
#include "embedded/dwg/layer_fields.h"
#include "embedded/dwg/property_fields.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

bool isCommon(const Record& record, const PropertyField& field) {
  const bool isEntity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
  return (isEntity && field.property <= Property::kInvisible) || field.property == Property::kLayer;
}

StoredValue storedValue(const DwgStorage& storage, const PropertyField& place, const Value& value,
                        Handle own) {
  const auto handle = [&] {
    const auto* reference = std::get_if<HandleReference>(&value);
    return reference != nullptr ? reference->absolute(own) : 0;
  };
  const auto record = [](RecordId id) { return id == kNoRecord ? StoredValue() : Reference{id}; };
  const auto* integer = std::get_if<std::int64_t>(&value);
  const auto* real = std::get_if<double>(&value);
  switch (place.form) {
    case FieldForm::kInteger:
      return integer != nullptr ? *integer : std::int64_t{0};
    case FieldForm::kReal:
      return real != nullptr ? *real : 0;
    case FieldForm::kAngle:
      return degreesFromRadians(real != nullptr ? *real : 0);
    case FieldForm::kText:
      return storedText(value);
    case FieldForm::kReference:
      return record(storage.recordOf(handle()));
    case FieldForm::kBlock:
      return record(storage.blockOf(handle()));
    default:
      return {};
  }
}

StoredValue readGeneric(const DwgStorage& storage, const Record& record, const PropertyField& place) {
  const Fields& fields = isCommon(record, place) ? storage.commonFields(record) : storage.fields(record);
  const Field* field = fields.find(place.field);
  return field == nullptr ? StoredValue() : storedValue(storage, place, field->value, fields.own());
}

StoredValue linetypeOf(const DwgStorage& storage, const DwgStorage::Entity& entity) {
  const LinetypeKind kind = entity.values.linetypeKind.value_or(entity.head.linetypeKind);
  if (kind == LinetypeKind::kNamed)
    return Reference{storage.recordOf(entity.values.linetype.value_or(entity.head.linetype))};
  if (kind == LinetypeKind::kByLayer) return {};
  return std::string(linetypeName(kind));
}

// Of an entity that holds together; nullopt: the property is read like that of any object.
std::optional<StoredValue> readQuickly(const DwgStorage& storage, const DwgStorage::Entity& entity,
                                       const PropertyField& place) {
  const EntityHead& head = entity.head;
  const EntityValues& set = entity.values;
  switch (place.property) {
    case Property::kLayer:
      return storedValue(storage, place, HandleReference{5, 0, set.layer.value_or(head.layer)}, 0);
    case Property::kLinetype:
      return linetypeOf(storage, entity);
    case Property::kColorIndex: {
      if (!head.plainColor) return std::nullopt;
      const std::int16_t color = set.color.value_or(head.color);
      return color == 256 ? StoredValue() : StoredValue(std::int64_t{color});
    }
    case Property::kLineWeight:
      if (storage.version() < Version::kR2000) return StoredValue();
      return std::int64_t{lineWeightOf(set.lineWeight.value_or(head.lineWeight))};
    case Property::kTransparency:
      return head.plainColor ? std::optional(StoredValue()) : std::nullopt;
    case Property::kLinetypeScale:
      return set.linetypeScale.value_or(head.linetypeScale);
    case Property::kInvisible:
      return std::int64_t{set.invisible.value_or(head.invisible)};
    case Property::kTextHeight:
      if (set.height) return set.height->value;
      break;
    default:
      break;
  }
  if (const auto reference = ownReference(entity.frame, head, place.field))
    return storedValue(storage, place, *reference, entity.frame.handle);
  if (place.form == FieldForm::kSpecial || place.form == FieldForm::kEntry) return std::nullopt;
  const FoundField* const field = entity.field(place.field);
  if (field == nullptr) return std::nullopt;
  if (std::holds_alternative<std::monostate>(field->value)) return StoredValue();
  return storedValue(storage, place, field->value, entity.frame.handle);
}

}  // namespace

bool DwgStorage::canHold(const Record& record, Property property) const {
  const PropertyField* place = findField(record.kind, typeName(record), property);
  return place != nullptr && place->form != FieldForm::kEntry && version() >= place->since;
}

bool DwgStorage::differInCommonOnly(const Record& before, const Record& now) const {
  const ValueState was = states_.values(before.edits), is = states_.values(now.edits);
  if (was.base == is.base && was.values.height == is.values.height) return true;
  const base::Result<ObjectFrame> former = frame(before), present = frame(now);
  return former.ok() && present.ok() && dwg::differInCommonOnly(former.value(), present.value());
}

StoredValue DwgStorage::property(const Record& record, Property property) const {
  const std::string_view type = typeName(record);
  const PropertyField* place = findField(record.kind, type, property);
  if (place == nullptr) return {};
  if (const Entity* entity = this->entity(record)) {
    if (std::optional<StoredValue> value = readQuickly(*this, *entity, *place)) return std::move(*value);
  }
  if (place->form == FieldForm::kEntry) return ofEntry(record, property);
  return place->form == FieldForm::kSpecial ? readSpecial(*this, record, type, property)
                                            : readGeneric(*this, record, *place);
}

// What a block has in its table's entry, as that was first: what becomes of it is the drawing's to know, and
// none of this can be set.
StoredValue DwgStorage::ofEntry(const Record& block, Property property) const {
  const std::optional<Record> entry = firstState(entryOf(block));
  if (!entry) return {};
  const Fields& fields = this->fields(*entry);
  if (property == Property::kStandardFlags) return standardFlags(fields, "BLOCK");
  const Field* description = fields.find("description");
  return description == nullptr ? StoredValue() : StoredValue(storedText(description->value));
}

EntityLooks DwgStorage::looks(const Record& entity) const {
  const bool isLayer = entity.kind == RecordKind::kTableRecord;
  const Fields& fields = isLayer ? this->fields(entity) : commonFields(entity);
  EntityLooks looks;
  const Color color = fields.color("color");
  looks.trueColor = color.rgb;
  if (isLayer) {
    looks.lineWeight = static_cast<std::int16_t>(layerBits(fields).lineWeight);
    return looks;
  }
  if (fields.find("lineweight") != nullptr)
    looks.lineWeight = static_cast<std::int16_t>(lineWeightOf(fields.integer("lineweight")));
  const StoredValue transparency = property(entity, Property::kTransparency);
  if (const auto* value = std::get_if<std::int64_t>(&transparency))
    looks.transparency = static_cast<std::int32_t>(*value);
  looks.linetypeScale = commonFields(entity).real("linetype scale", 1);
  // A colour of a book is an object of its own.
  if (!looks.trueColor && color.reference) {
    if (const std::optional<Record> named = firstState(*color.reference))
      looks.trueColor = this->fields(*named).color("color").rgb;
  }
  return looks;
}

}  // namespace cad::dwg
