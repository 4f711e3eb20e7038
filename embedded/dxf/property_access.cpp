// Reading and writing of typed properties in DXF records.

#include <algorithm>
#include <optional>
#include <string>

#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/record_tools.h"
#include "embedded/dxf/special_properties.h"

namespace cad::dxf {
namespace {

constexpr int kLayerCode = 8;
constexpr double kDefaultWeight = -3;  // of layers: the host's default weight; entities follow their layer

// Whether a record without the group already has this value.
bool isDefault(RecordKind kind, Property property, const StoredValue& value) {
  const PropertyInfo& info = propertyInfo(property);
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    const bool layer = kind == RecordKind::kTableRecord && property == Property::kLineWeight;
    return static_cast<double>(*number) == (layer ? kDefaultWeight : info.defaultValue);
  }
  if (const auto* real = std::get_if<double>(&value)) {
    return property != Property::kTextHeight && *real == info.defaultValue;
  }
  const auto* text = std::get_if<std::string>(&value);
  if (text == nullptr) return true;
  if (property == Property::kLinetype) return equalNoCase(*text, "ByLayer");
  if (property == Property::kLayerLinetype) return equalNoCase(*text, "Continuous");
  if (property == Property::kTextStyle || property == Property::kDimStyle)
    return equalNoCase(*text, "Standard");
  if (property == Property::kLayer) return *text == "0";
  return text->empty();
}

// Whether no group is the only way to say this: a transparency of 0 is read elsewhere as fully transparent.
bool hasNoGroup(Property property, const StoredValue& value) {
  return property == Property::kTransparency && value == StoredValue(std::int64_t{0});
}

StoredValue readValue(const Group& group, PropertyType type, const Dialect& dialect) {
  switch (type) {
    case PropertyType::kInteger:
      if (const auto value = integerValue(group, dialect)) return *value;
      return {};
    case PropertyType::kReal:
      if (const auto value = realValue(group, dialect)) return *value;
      return {};
    case PropertyType::kName:
      return std::string(trimmed(group.value));
    case PropertyType::kText:
      return std::string(group.value);
  }
  return {};
}

std::string valueBytes(const Dialect& dialect, int code, const StoredValue& value, std::string_view old) {
  if (const auto* number = std::get_if<std::int64_t>(&value))
    return integerBytes(dialect, code, *number, old);
  if (const auto* real = std::get_if<double>(&value)) return realBytes(dialect, *real);
  return std::get<std::string>(value);
}

std::string groupBytes(const Dialect& dialect, int code, const StoredValue& value) {
  GroupWriter writer(dialect);
  if (const auto* number = std::get_if<std::int64_t>(&value)) {
    writer.integer(code, *number);
  } else if (const auto* real = std::get_if<double>(&value)) {
    writer.real(code, *real);
  } else {
    writer.text(code, std::get<std::string>(value));
  }
  return writer.take();
}

bool hasLineBreak(const StoredValue& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text != nullptr &&
         std::ranges::any_of(*text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; });
}

// Records that were added have not been looked through.
bool isStraying(const Record& record) { return (record.flags & (Record::kAdded | kStraying)) != 0; }

// Where what every entity has ends, by the markers, if nothing else stands before.
std::optional<std::uint32_t> endOfCommon(std::string_view entity, const Dialect& dialect) {
  constexpr int kHandle = 5, kMarker = 100, kOwner = 330;
  RegionCursor cursor(entity, dialect);
  while (cursor.next()) {
    const int code = cursor.group().code;
    if (cursor.leftHome()) return cursor.group().begin;
    const bool isCommon =
        code == 0 || code == kHandle || code == kMarker || code == kOwner || isCommonCode(code);
    if (!isCommon && cursor.region() != Region::kApplication) return std::nullopt;
  }
  return std::nullopt;
}

// A layer's colour number with the other sign turns the layer on or off and leaves its colour.
bool turnsLayer(const PropertyPlace& place, const Located& located, const StoredValue& value,
                const Dialect& dialect) {
  if (place.property != Property::kLayerColor || !located.group) return false;
  const auto* number = std::get_if<std::int64_t>(&value);
  return number != nullptr && integerValue(*located.group, dialect) == -*number;
}

std::wstring ascii(std::string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

bool DxfStorage::canHold(const Record& record, Property property) const {
  const PropertyPlace* place = findPlace(record.kind, typeName(record), property);
  return place != nullptr && facts_.version >= place->since;
}

bool DxfStorage::differInCommonOnly(const Record& before, const Record& now) const {
  std::string scratchBefore, scratchNow;
  const std::string_view former = bytes(before, scratchBefore), present = bytes(now, scratchNow);
  const std::optional<std::uint32_t> formerEnd = endOfCommon(former, dialect_),
                                     presentEnd = endOfCommon(present, dialect_);
  return !isStraying(now) && formerEnd && presentEnd &&
         former.substr(*formerEnd) == present.substr(*presentEnd);
}

EntityLooks DxfStorage::looks(const Record& entity) const {
  EntityLooks looks;
  std::string scratch;
  RegionCursor cursor(bytes(entity, scratch), dialect_);
  const bool isLayer = entity.kind == RecordKind::kTableRecord;
  while (cursor.next() && !cursor.leftHome()) {
    if (isLayer ? cursor.region() == Region::kExtendedData : !cursor.inCommon()) continue;
    const Group& group = cursor.group();
    const auto value = [&] { return integerValue(group, dialect_).value_or(0); };
    if (group.code == 370) looks.lineWeight = static_cast<std::int16_t>(value());
    if (group.code == 440) looks.transparency = static_cast<std::int32_t>(value());
    if (group.code == kTrueColor) looks.trueColor = static_cast<std::int32_t>(value());
    if (group.code == 48) looks.linetypeScale = realValue(group, dialect_).value_or(1);
  }
  return looks;
}

StoredValue DxfStorage::property(const Record& record, Property property) const {
  const PropertyPlace* place = findCommonPlace(record.kind, property);
  std::string_view type;
  if (place == nullptr) {
    type = typeName(record);
    place = findPlace(record.kind, type, property);
  }
  if (place == nullptr) return {};
  if (isSpecial(type, *place)) {
    std::string scratch;
    return readSpecial(bytes(record, scratch), dialect_, type, property);
  }
  const Group* group = nullptr;
  if (isCommon(*place) && !isStraying(record)) {
    group = commonLook(record).find(place->code);
  } else if (const Located& located = look(record, *place); located.group) {
    group = &*located.group;
  }
  return group == nullptr ? StoredValue() : readValue(*group, propertyInfo(property).type, dialect_);
}

base::Result<EditId> DxfStorage::setProperty(Drawing& drawing, const Record& record, Property property,
                                             const StoredValue& value) {
  if (const auto* reference = std::get_if<Reference>(&value)) {
    // The file may spell a space's name otherwise than the drawing does.
    const bool space = drawing.isLayoutSpace(reference->record);
    const NameId name =
        space ? drawing.name(reference->record, Property::kName) : drawing.recordName(reference->record);
    return changed(record, property, std::string(drawing.names().stored(name)));
  }
  base::Result<EditId> state = changed(record, property, value);
  if (!state || state.value() == record.edits) return state;
  const bool transparent = property == Property::kTransparency && record.kind == RecordKind::kTableRecord;
  if (!transparent && property != Property::kTypeface) return state;
  const base::Status known = requireApplication(drawing, transparent ? L"AcCmTransparency" : L"ACAD");
  return known ? state : known.failure();
}

base::Result<EditId> DxfStorage::changed(const Record& record, Property property, const StoredValue& value) {
  const PropertyPlace* place = findCommonPlace(record.kind, property);
  std::string_view type;
  if (place == nullptr) {
    type = typeName(record);
    place = findPlace(record.kind, type, property);
  }
  const auto refused = [&](const std::wstring& reason) {
    return base::Failure{{}, reason + ascii(propertyInfo(property).name)};
  };
  if (place == nullptr) return refused(L"A record of the type " + ascii(type) + L" has no ");
  if (facts_.version < place->since) {
    if (isDefault(record.kind, property, value)) return record.edits;
    return refused(L"A drawing of this version cannot hold the property ");
  }
  if (hasLineBreak(value)) return refused(L"There is a line break in the ");
  if (isSpecial(type, *place)) return writeSpecial(*this, record, type, property, value);
  return isCommon(*place) && !isStraying(record) ? setCommon(record, *place, value)
                                                 : setGeneric(record, *place, value);
}

const Located& DxfStorage::look(const Record& record, const PropertyPlace& place) const {
  if (look_.place != &place || look_.of != stateOf(record)) {
    look_.located = locate(bytes(record, look_.scratch), dialect_, place, isStraying(record));
    look_.place = &place, look_.of = stateOf(record);
  }
  return look_.located;
}

const CommonLook& DxfStorage::commonLook(const Record& record) const {
  if (common_.of != stateOf(record)) {
    common_.look.read(bytes(record, common_.scratch), dialect_);
    common_.of = stateOf(record);
  }
  return common_.look;
}

EditId DxfStorage::setCommon(const Record& record, const PropertyPlace& place, const StoredValue& value) {
  commonLook(record);
  CommonLook& seen = common_.look;
  const Group* group = seen.find(place.code);
  const bool removes =
      (place.code == kColorNumber && seen.hasTrueColor()) || hasNoGroup(place.property, value);
  if (removes || (group == nullptr && place.code == kLayerCode)) return setGeneric(record, place, value);
  EditId state = kNoEdit;
  if (group == nullptr) {
    if (isDefault(record.kind, place.property, value)) return record.edits;
    // Mostly entity after entity gets the same group.
    if (newest_.code != place.code || newest_.value != value)
      newest_ = {place.code, value, edits_.keepText(groupBytes(dialect_, place.code, value))};
    state = splice(record, seen.insertAt(), 0, newest_.bytes);
    seen.groupInserted(edits_.text(newest_.bytes), dialect_);
  } else {
    if (readValue(*group, propertyInfo(place.property).type, dialect_) == value) return record.edits;
    const TextId bytes = edits_.keepText(valueBytes(dialect_, place.code, value, group->value));
    state = splice(record, group->valueBegin, static_cast<std::uint32_t>(group->value.size()), bytes);
    seen.valueReplaced(place.code, edits_.text(bytes));
  }
  common_.of->edits = state;
  return state;
}

EditId DxfStorage::changeValue(const Record& record, const PropertyPlace& place, const Located& located,
                               const StoredValue& value) {
  if (!located.group) {
    if (isDefault(record.kind, place.property, value)) return record.edits;
    return withGroups(record, located.insertAt, groupBytes(dialect_, place.code, value));
  }
  if (readValue(*located.group, propertyInfo(place.property).type, dialect_) == value) return record.edits;
  if (hasNoGroup(place.property, value)) return withoutProperty(record, place);
  return withValue(record, *located.group, valueBytes(dialect_, place.code, value, located.group->value));
}

EditId DxfStorage::withoutProperty(const Record& record, const PropertyPlace& place) {
  Record state = record;
  for (;;) {
    const Located& located = look(state, place);
    if (!located.group) return state.edits;
    state.edits = withoutGroup(state, *located.group);
  }
}

EditId DxfStorage::setGeneric(const Record& record, const PropertyPlace& place, const StoredValue& value) {
  Record state = record;
  const Located* located = &look(state, place);
  const bool keepsColor = turnsLayer(place, *located, value, dialect_);
  while (!keepsColor && (located->trueColor || located->colorName)) {
    state.edits = withoutGroup(state, located->trueColor ? *located->trueColor : *located->colorName);
    located = &look(state, place);
  }
  return changeValue(state, place, *located, value);
}

}  // namespace cad::dxf
