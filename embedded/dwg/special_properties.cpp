#include "embedded/dwg/special_properties.h"
#include "embedded/drawing/angles.h"
#include "embedded/dwg/field_texts.h"

#include <algorithm>
#include <cmath>

#include "embedded/dwg/application_data.h"
#include "embedded/dwg/entity_head.h"
#include "embedded/dwg/layer_fields.h"

namespace cad::dwg {
namespace {

constexpr wchar_t kTransparencyApplication[] = L"AcCmTransparency", kStyleApplication[] = L"ACAD";

// The first value of a code that an application keeps with the record.
std::optional<ExtendedValue> firstOf(const DwgStorage& storage, const Record& record,
                                     std::wstring_view application, int code) {
  const auto values = readableValues(storage, record, application);
  if (!values) return std::nullopt;
  for (const ExtendedValue& value : *values)
    if (value.code == code) return value;
  return std::nullopt;
}

StoredValue readNumber(const DwgStorage& storage, const Record& record, std::wstring_view application) {
  const auto value = firstOf(storage, record, application, 1071);
  return value ? StoredValue(integerOf(*value)) : StoredValue();
}

StoredValue readTypeface(const DwgStorage& storage, const Record& record) {
  const auto value = firstOf(storage, record, kStyleApplication, 1000);
  return value ? StoredValue(storedText(value->value)) : StoredValue();
}

StoredValue readLinetype(const DwgStorage& storage, const Fields& fields) {
  switch (linetypeKindOf(fields)) {
    case LinetypeKind::kByBlock:
      return std::string("ByBlock");
    case LinetypeKind::kContinuous:
      return std::string("Continuous");
    case LinetypeKind::kNamed:
      return Reference{storage.recordOf(fields.handle("linetype").value_or(0))};
    default:
      return {};
  }
}

StoredValue readTransparency(const Fields& fields) {
  const Field* field = fields.find("color", 0, Part::kTransparency);
  if (field == nullptr) return {};
  const auto* value = std::get_if<std::int64_t>(&field->value);
  return value == nullptr || *value == 0 ? StoredValue() : StoredValue(*value);
}

StoredValue readDirection(const Fields& fields) {
  const Point axis = fields.point("x axis", {1, 0, 0});
  return degreesFromRadians(std::atan2(axis.y, axis.x));
}

StoredValue readLayerColor(const Fields& fields) {
  const std::int64_t number = fields.color("color").number;
  return layerBits(fields).off ? -number : number;
}

StoredValue readName(const DwgStorage& storage, const Record& record, std::string_view type) {
  if (type != "BLOCK" && type != "BLOCK_RECORD") return readPlainName(storage, record);
  const Handle entry = type == "BLOCK" ? storage.entryOf(record) : storage.handle(record).value_or(0);
  const std::string name = storage.blockName(entry);
  return name.empty() ? StoredValue() : StoredValue(name);
}

struct FlagField {
  std::string_view type, field;  // an empty type: the records of every table
  std::int64_t bit;
};
constexpr FlagField kFlags[] = {{"", "xref dependent", RecordFlag::kDependent},
                                {"STYLE", "shape file", TextStyleFlag::kShapeFile},
                                {"STYLE", "vertical", TextStyleFlag::kVertical},
                                {"BLOCK", "anonymous", 1},
                                {"BLOCK", "has attributes", 2},
                                {"BLOCK", "external", BlockFlag::kExternal},
                                {"BLOCK", "overlaid", 8}};

constexpr std::int64_t kFrozenInNew = 2;  // of a layer

std::int64_t layerFlags(const Fields& fields) {
  const LayerBits bits = layerBits(fields);
  return (bits.frozen ? LayerFlag::kFrozen : 0) | (bits.frozenInNew ? kFrozenInNew : 0) |
         (bits.locked ? LayerFlag::kLocked : 0);
}

}  // namespace

// It follows what all objects have.
StoredValue readPlainName(const DwgStorage& storage, const Record& record) {
  const base::Result<ObjectFrame> frame = storage.frame(record);
  if (!frame.ok()) return {};
  const ObjectFrame& object = frame.value();
  if (hasWideTexts(object.version)) {
    BitReader reader(object.data, object.textBegin, object.textEnd);
    const std::u16string name = reader.tu();
    return reader.failed() ? StoredValue() : StoredValue(storedText(name));
  }
  std::uint32_t at = object.extendedEnd;
  for (const Field& field : storage.commonFields(record).all())
    if (field.stream == Stream::kData) at = std::max(at, field.end);
  BitReader reader(object.data, at, object.dataEnd);
  const std::string name = reader.tv();
  return reader.failed() ? StoredValue() : StoredValue(storedText(name));
}

Color colorOf(std::int64_t number) {
  Color color;
  color.number = static_cast<std::int16_t>(number);
  return color;
}

std::int64_t standardFlags(const Fields& fields, std::string_view type) {
  std::int64_t bits = type == "LAYER" ? layerFlags(fields) : 0;
  for (const FlagField& flag : kFlags)
    if ((flag.type.empty() || flag.type == type) && fields.integer(flag.field) != 0) bits |= flag.bit;
  return bits;
}

base::Status changeStandardFlags(const Fields& fields, std::string_view type, std::int64_t flags,
                                 FieldChanges& changes) {
  std::int64_t left = flags ^ standardFlags(fields, type);
  if (type == "LAYER") {
    LayerBits bits = layerBits(fields);
    bits.frozen = (flags & LayerFlag::kFrozen) != 0;
    bits.frozenInNew = (flags & kFrozenInNew) != 0;
    bits.locked = (flags & LayerFlag::kLocked) != 0;
    setLayerBits(fields, bits, changes);
    left &= ~(LayerFlag::kFrozen | kFrozenInNew | LayerFlag::kLocked);
  }
  for (const FlagField& flag : kFlags) {
    if ((left & flag.bit) == 0 || flag.type != type || fields.find(flag.field) == nullptr) continue;
    changes.set(flag.field, (flags & flag.bit) != 0);
    left &= ~flag.bit;
  }
  if (left == 0) return {};
  return base::Failure{{}, L"A drawing of this format cannot change these flags"};
}

StoredValue readSpecial(const DwgStorage& storage, const Record& record, std::string_view type,
                        Property property) {
  const bool isEntity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
  switch (property) {
    case Property::kName:
      return readName(storage, record, type);
    case Property::kLinetype:
      return readLinetype(storage, storage.commonFields(record));
    case Property::kColorIndex: {
      const std::int64_t number = storage.commonFields(record).color("color").number;
      return number == 256 ? StoredValue() : StoredValue(number);
    }
    case Property::kLineWeight: {
      if (storage.version() < Version::kR2000) return {};
      if (!isEntity) return std::int64_t{layerBits(storage.fields(record)).lineWeight};
      return std::int64_t{lineWeightOf(storage.commonFields(record).integer("lineweight"))};
    }
    case Property::kTransparency:
      return isEntity ? readTransparency(storage.commonFields(record))
                      : readNumber(storage, record, kTransparencyApplication);
    case Property::kRotation:
      return readDirection(storage.fields(record));
    case Property::kLayerColor:
      return readLayerColor(storage.fields(record));
    case Property::kLayerPlottable:
      return std::int64_t{layerBits(storage.fields(record)).plotted};
    case Property::kTypeface:
      return readTypeface(storage, record);
    case Property::kFontFlags:
      return readNumber(storage, record, kStyleApplication);
    case Property::kStandardFlags:
      return standardFlags(storage.fields(record), type);
    default:
      return {};
  }
}

}  // namespace cad::dwg
