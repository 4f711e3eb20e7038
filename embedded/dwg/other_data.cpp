// What is compared of two records besides their properties.

#include <algorithm>
#include <string>

#include "embedded/drawing/drawing.h"
#include "embedded/drawing/value_texts.h"
#include "embedded/dwg/application_data.h"
#include "embedded/dwg/dim_lists.h"
#include "embedded/dwg/property_fields.h"

namespace cad::dwg {
namespace {

// What holds the file together, or is counted from other fields.
constexpr std::string_view kFrame[] = {
    "owner",          "entity mode",       "no links",     "previous",      "next",        "reactor count",
    "reactor",        "no dictionary",     "has graphics", "graphics size", "entry count", "entry",
    "first entity",   "last entity",       "entity count", "entity",        "block",       "end of block",
    "linetype flags", "linetype by layer", "insert",       "insert mark"};
// Of the fields of entities those in which no geometry stands.
constexpr std::string_view kPlain[] = {"plot style flags", "plot style", "material flags", "material",
                                       "shadow flags",     "name",       "pattern type",   "tag",
                                       "prompt",           "annotation", "associative"};

bool isIn(std::span<const std::string_view> list, std::string_view name) {
  return std::ranges::find(list, name) != list.end();
}

// The fields that are told by the properties of a type.
std::vector<std::string_view> toldFields(const Record& record, std::string_view type) {
  std::vector<std::string_view> told = {"color", "lineweight"};
  if (record.table == Table::kLayer) told.insert(told.end(), {"flags", "off"});
  for (const PropertyInfo& info : allProperties())
    if (const PropertyField* place = findField(record.kind, type, info.property))
      told.push_back(place->field);
  return told;
}

std::wstring valueText(const DwgStorage& storage, const Fields& fields, const Field& field) {
  if (const auto* integer = std::get_if<std::int64_t>(&field.value)) return std::to_wstring(*integer);
  if (const auto* real = std::get_if<double>(&field.value)) return shortNumberText(*real);
  if (const auto* point = std::get_if<Point>(&field.value)) return pointText(*point);
  if (const auto* reference = std::get_if<HandleReference>(&field.value))
    return L"#" + std::to_wstring(reference->absolute(fields.own()));
  if (const auto* date = std::get_if<Date>(&field.value))
    return std::to_wstring(date->days) + L" " + std::to_wstring(date->milliseconds);
  if (!std::holds_alternative<std::monostate>(field.value)) return storage.text(field.value);
  std::wstring digits;
  for (const char c : fields.bytes(field)) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    digits += kDigits[byte >> 4];
    digits += kDigits[byte & 0xF];
  }
  return digits;
}

std::wstring bytesText(std::string_view bytes) {
  std::wstring text;
  for (const char c : bytes) text += std::to_wstring(static_cast<unsigned char>(c)) + L" ";
  return text;
}

void addExtendedData(const DwgStorage& storage, const Record& record, std::string_view type,
                     std::vector<std::wstring>& data) {
  const base::Result<ObjectFrame> frame = storage.frame(record);
  if (!frame.ok()) return;
  const base::Result<std::vector<ExtendedData>> extended = readExtendedData(frame.value());
  if (!extended.ok()) return;
  const bool hidesOwn = takesDimOverrides(type) || record.table == Table::kTextStyle ||
                        record.table == Table::kLayer || record.table == Table::kDimStyle;
  for (const ExtendedData& each : extended.value()) {
    const Handle application = each.application.absolute(frame.value().handle);
    if (hidesOwn && (isApplication(storage, application, L"ACAD") ||
                     isApplication(storage, application, L"AcCmTransparency")))
      continue;
    data.push_back(L"application #" + std::to_wstring(application) + L": " + bytesText(each.bytes));
  }
}

}  // namespace

std::vector<std::wstring> DwgStorage::otherData(const Record& record, const OtherParts& parts) const {
  std::vector<std::wstring> data;
  if (record.kind == RecordKind::kFrame) return data;
  const std::string_view type = typeName(record);
  const bool isEntity = record.kind == RecordKind::kEntity || record.kind == RecordKind::kSubEntity;
  const Fields& fields = this->fields(record);
  const std::vector<std::string_view> told = toldFields(record, type);
  // Of these the dimension variables, or the dashes, tell all.
  const bool isToldWhole = record.table == Table::kDimStyle || record.table == Table::kLinetype;
  for (const Field& field : fields.all()) {
    const bool isReference = std::holds_alternative<HandleReference>(field.value);
    if (isToldWhole || isIn(kFrame, field.name) || isIn(told, field.name)) continue;
    if (isReference && !parts.handles) continue;
    if (isEntity && !parts.geometry && !isIn(kPlain, field.name)) continue;
    data.push_back(std::wstring(field.name.begin(), field.name.end()) + L": " +
                   valueText(*this, fields, field));
  }
  if (!fields.complete() || !fields.intact()) data.push_back(bytesText(object(record).data));
  addExtendedData(*this, record, type, data);
  return data;
}

bool DwgStorage::holdsSame(const Record& record, const RecordStorage& other, const Record& others) const {
  if (&other == this) return others.offset == record.offset && others.edits == record.edits;
  const auto* dwg = dynamic_cast<const DwgStorage*>(&other);
  if (dwg == nullptr || version() != dwg->version() || facts().codePage != dwg->facts().codePage)
    return false;
  const ObjectBytes own = object(record), theirs = dwg->object(others);
  return own.data == theirs.data && own.handleBits == theirs.handleBits && namesAgree(record, *dwg);
}

// Whether what equal bytes refer to has the same name in both drawings.
bool DwgStorage::namesAgree(const Record& record, const DwgStorage& other) const {
  return std::ranges::all_of(references(record), [&](Handle handle) {
    return handle == 0 || firstName(handle) == other.firstName(handle);
  });
}

}  // namespace cad::dwg
