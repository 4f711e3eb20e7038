// Reading and writing of typed properties in DXF records.

#include <cmath>
#include <string>

#include "base/fold.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/special_properties.h"

namespace cad::dxf {
namespace {

bool equalNoCase(std::string_view a, std::string_view b) {
  const auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (upper(a[i]) != upper(b[i])) return false;
  }
  return true;
}

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
  return text != nullptr && text->find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos;
}

std::wstring ascii(std::string_view text) { return std::wstring(text.begin(), text.end()); }

}  // namespace

bool DxfStorage::canHold(const Record& record, Property property) const {
  const PropertyPlace* place = findPlace(record.kind, typeName(record), property);
  return place != nullptr && facts_.version >= place->since;
}

StoredValue DxfStorage::property(const Record& record, Property property) const {
  const std::string_view type = typeName(record);
  const PropertyPlace* place = findPlace(record.kind, type, property);
  if (place == nullptr) return {};
  std::string scratch;
  const std::string_view present = bytes(record, scratch);
  if (isSpecial(type, property)) return readSpecial(present, dialect_, type, property);
  const Located located = locate(present, dialect_, *place);
  if (!located.found) return {};
  return readValue(located.group, propertyInfo(property).type, dialect_);
}

base::Result<EditId> DxfStorage::setProperty(const Record& record, Property property,
                                             const StoredValue& value) {
  const std::string_view type = typeName(record);
  const PropertyPlace* place = findPlace(record.kind, type, property);
  const std::wstring name = ascii(propertyInfo(property).name);
  if (place == nullptr) {
    return base::Failure{{}, L"A record of the type " + ascii(type) + L" has no " + name};
  }
  if (facts_.version < place->since) {
    if (isDefault(record.kind, property, value)) return record.edits;
    return base::Failure{{}, L"A drawing of this version cannot hold the property " + name};
  }
  if (hasLineBreak(value)) return base::Failure{{}, L"The " + name + L" has a line break in it"};
  if (isSpecial(type, property)) return writeSpecial(*this, record, type, property, value);
  return setGeneric(record, *place, value);
}

base::Result<EditId> DxfStorage::setGeneric(const Record& record, const PropertyPlace& place,
                                            const StoredValue& value) {
  std::string scratch;
  Record state = record;
  const std::string_view present = bytes(record, scratch);
  const Located located = locate(present, dialect_, place);
  bool lightness = false;  // a layer's colour number with the other sign: on or off
  if (located.found) {
    const StoredValue old = readValue(located.group, propertyInfo(place.property).type, dialect_);
    if (place.property == Property::kLayerColor && old.index() == value.index() && old != value) {
      lightness = std::abs(std::get<std::int64_t>(old)) == std::abs(std::get<std::int64_t>(value));
    }
    if (old != value) {
      state.edits =
          withValue(state, located.group, valueBytes(dialect_, place.code, value, located.group.value));
    }
  } else if (!isDefault(record.kind, place.property, value)) {
    state.edits = withGroups(state, located.insertAt, groupBytes(dialect_, place.code, value));
  }
  const bool color = place.property == Property::kColorIndex || place.property == Property::kLayerColor;
  return color && !lightness ? dropTrueColor(state) : state.edits;
}

EditId DxfStorage::dropTrueColor(Record record) {
  static constexpr PropertyPlace kRgb{Property::kColorIndex, 420, "AcDbEntity", Version::kR12};
  static constexpr PropertyPlace kBook{Property::kColorIndex, 430, "AcDbEntity", Version::kR12};
  static constexpr PropertyPlace kLayerRgb{Property::kLayerColor, 420, "", Version::kR12};
  static constexpr PropertyPlace kLayerBook{Property::kLayerColor, 430, "", Version::kR12};
  const bool layer = record.kind == RecordKind::kTableRecord;
  std::string scratch;
  for (const PropertyPlace* place : {layer ? &kLayerBook : &kBook, layer ? &kLayerRgb : &kRgb}) {
    const Located located = locate(bytes(record, scratch), dialect_, *place);
    if (located.found) record.edits = withoutGroup(record, located.group);
  }
  return record.edits;
}

}  // namespace cad::dxf
