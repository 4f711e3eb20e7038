// Reading and writing of typed properties.

#include <string>

#include "embedded/drawing/drawing.h"
#include "embedded/dwg/angles.h"
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

StoredValue readGeneric(const DwgStorage& storage, const Record& record, const PropertyField& place) {
  const Fields& fields = isCommon(record, place) ? storage.commonFields(record) : storage.fields(record);
  if (fields.find(place.field) == nullptr) return {};
  switch (place.form) {
    case FieldForm::kInteger:
      return fields.integer(place.field);
    case FieldForm::kReal:
      return fields.real(place.field);
    case FieldForm::kAngle:
      return degreesOf(fields.real(place.field));
    case FieldForm::kText:
      return storedText(fields.find(place.field)->value);
    case FieldForm::kReference: {
      const RecordId named = storage.recordOf(fields.handle(place.field).value_or(0));
      return named == kNoRecord ? StoredValue() : Reference{named};
    }
    case FieldForm::kBlock: {
      const RecordId block = storage.blockOf(fields.handle(place.field).value_or(0));
      return block == kNoRecord ? StoredValue() : Reference{block};
    }
    default:
      return {};
  }
}

}  // namespace

bool DwgStorage::canHold(const Record& record, Property property) const {
  const PropertyField* place = findField(record.kind, typeName(record), property);
  return place != nullptr && place->form != FieldForm::kEntry && version() >= place->since;
}

bool DwgStorage::differInCommonOnly(const Record& before, const Record& now) const {
  const base::Result<ObjectFrame> former = frame(before), present = frame(now);
  return former.ok() && present.ok() && dwg::differInCommonOnly(former.value(), present.value());
}

StoredValue DwgStorage::property(const Record& record, Property property) const {
  const std::string_view type = typeName(record);
  const PropertyField* place = findField(record.kind, type, property);
  if (place == nullptr) return {};
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
