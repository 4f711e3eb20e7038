// Setting properties that are not one field with one value of the same kind.

#include <cmath>
#include <cstdlib>

#include "embedded/drawing/angles.h"
#include "embedded/drawing/drawing.h"
#include "embedded/dwg/application_data.h"
#include "embedded/dwg/layer_fields.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

constexpr int kText = 1000, kNumber = 1071;
constexpr wchar_t kTransparencyApplication[] = L"AcCmTransparency", kStyleApplication[] = L"ACAD";

// What libraries make of a quarter turn differs; along an axis the other part is 0.
double snapped(double value) { return std::fabs(value) < 1e-15 ? 0 : value; }

void changeDirection(double degrees, FieldChanges& changes) {
  const double radians = degrees * kRadiansPerDegree;
  changes.set("x axis", Point{snapped(std::cos(radians)), snapped(std::sin(radians)), 0});
}

// The layer's colour number with the other sign turns the layer on or off and leaves its colour.
void changeLayerColor(const DwgStorage& storage, const Record& record, std::int64_t value,
                      FieldChanges& changes) {
  const Fields& fields = storage.fields(record);
  LayerBits bits = layerBits(fields);
  const Color present = fields.color("color");
  const bool turns = std::abs(value) == present.number && (value < 0) != bits.off;
  if (!turns) changes.setColor("color", colorOf(std::abs(value)));
  bits.off = value < 0;
  setLayerBits(fields, bits, changes);
}

base::Status changeLineWeight(const DwgStorage& storage, const Record& layer, std::int64_t value,
                              FieldChanges& changes) {
  const Fields& fields = storage.fields(layer);
  LayerBits bits = layerBits(fields);
  bits.lineWeight = static_cast<int>(value);
  if (setLayerBits(fields, bits, changes)) return {};
  return base::Failure{{}, L"There is no such lineweight"};
}

void changePlottable(const DwgStorage& storage, const Record& record, bool plotted, FieldChanges& changes) {
  const Fields& fields = storage.fields(record);
  LayerBits bits = layerBits(fields);
  bits.plotted = plotted;
  setLayerBits(fields, bits, changes);
}

using Values = std::vector<ExtendedValue>;

std::size_t positionOf(const Values& values, int code) {
  std::size_t at = 0;
  while (at < values.size() && values[at].code != code) ++at;
  return at;
}

void put(Values& values, std::size_t at, int code, Value value, std::uint16_t codePage) {
  const auto place = values.begin() + static_cast<std::ptrdiff_t>(at);
  Values all(values.begin(), place);
  append(all, code, std::move(value), codePage);
  all.insert(all.end(), place, values.end());
  values.swap(all);
}

// The number behind the application's other values; 0 is written only over another one.
bool putNumber(Values& values, std::int64_t number) {
  const std::size_t at = positionOf(values, kNumber);
  if (at < values.size()) {
    values[at].value = number;
  } else if (number != 0) {
    put(values, values.size(), kNumber, number, 0);
  } else {
    return false;
  }
  return true;
}

// A style without a typeface has no flags of one, either.
bool putTypeface(const DwgStorage& storage, Values& values, const std::string& face) {
  const std::size_t at = positionOf(values, kText);
  const auto place = values.begin() + static_cast<std::ptrdiff_t>(at);
  if (face.empty()) {
    if (at == values.size()) return false;
    const bool flagged = at + 1 < values.size() && values[at + 1].code == kNumber;
    values.erase(place, place + (flagged ? 2 : 1));
  } else if (at < values.size()) {
    values[at].value = storage.extendedText(face);
  } else {
    put(values, 0, kText, storage.extendedText(face), storage.codePageNumber());
    put(values, 1, kNumber, std::int64_t{0}, 0);
  }
  return true;
}

bool putFontFlags(Values& values, std::int64_t flags) {
  const std::size_t face = positionOf(values, kText), at = positionOf(values, kNumber);
  if (at < values.size()) {
    values[at].value = flags;
  } else if (face < values.size()) {
    put(values, face + 1, kNumber, flags, 0);
  } else {
    return false;
  }
  return true;
}

bool putValue(const DwgStorage& storage, Values& values, Property property, const StoredValue& value) {
  if (property == Property::kTypeface) return putTypeface(storage, values, std::get<std::string>(value));
  const std::int64_t number = std::get<std::int64_t>(value);
  return property == Property::kFontFlags ? putFontFlags(values, number) : putNumber(values, number);
}

base::Status changeApplicationData(Drawing& drawing, const DwgStorage& storage, const Record& record,
                                   Property property, const StoredValue& value, FieldChanges& changes) {
  const wchar_t* application =
      property == Property::kTransparency ? kTransparencyApplication : kStyleApplication;
  base::Result<ApplicationValues> present = applicationValues(storage, record, application);
  if (!present.ok()) return present.failure();
  Values values = std::move(present.value()).value_or(Values());
  if (!putValue(storage, values, property, value)) return {};
  const base::Result<Handle> handle = applicationHandle(drawing, application);
  if (!handle.ok()) return handle.failure();
  base::Result<std::vector<ExtendedData>> data =
      withApplicationValues(storage, record, handle.value(), values);
  if (!data.ok()) return data.failure();
  changes.setExtendedData(std::move(data.value()));
  return {};
}

}  // namespace

base::Status changeSpecial(Drawing& drawing, const DwgStorage& storage, const Record& record,
                           Property property, const StoredValue& value, FieldChanges& changes) {
  const bool isEntity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
  const auto* number = std::get_if<std::int64_t>(&value);
  switch (property) {
    case Property::kLineWeight:
      return changeLineWeight(storage, record, *number, changes);
    case Property::kTransparency:
      if (!isEntity) break;
      changes.set("color", Value(*number), 0, Part::kTransparency);
      return {};
    case Property::kRotation:
      changeDirection(std::get<double>(value), changes);
      return {};
    case Property::kLayerColor:
      changeLayerColor(storage, record, *number, changes);
      return {};
    case Property::kLayerPlottable:
      changePlottable(storage, record, *number != 0, changes);
      return {};
    case Property::kStandardFlags:
      return changeStandardFlags(storage.fields(record), storage.typeName(record), *number, changes);
    case Property::kTypeface:
    case Property::kFontFlags:
      break;
    default:
      return base::Failure{{}, L"A drawing of this format cannot change this property"};
  }
  return changeApplicationData(drawing, storage, record, property, value, changes);
}

}  // namespace cad::dwg
