// The variables of the header.

#include <algorithm>
#include <cmath>

#include "base/fold.h"
#include "embedded/drawing/angles.h"
#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/handle_text.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/drawing/value_texts.h"
#include "embedded/drawing/variable_numbers.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/fields/header_fields.h"
#include "embedded/dwg/packed_variables.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

constexpr std::string_view kMeasurement = "MEASUREMENT";  // not in the section of the others
constexpr double kMillisecondsOfDay = 86400000;

// Variables that are names, besides those of dimensions.
struct NamedVariable {
  std::string_view name;
  Table table;
};
constexpr NamedVariable kNamed[] = {{"CLAYER", Table::kLayer},        {"CELTYPE", Table::kLinetype},
                                    {"TEXTSTYLE", Table::kTextStyle}, {"DIMSTYLE", Table::kDimStyle},
                                    {"UCSNAME", Table::kUcs},         {"PUCSNAME", Table::kUcs}};
// Angles: radians in the file, degrees here.
constexpr std::string_view kAngles[] = {"ANGBASE"};

bool isAngle(std::string_view name) { return std::ranges::find(kAngles, name) != std::end(kAngles); }

Table tableOfVariable(std::string_view name) {
  if (const DimVariableInfo* dim = findDimVariable(name)) return cad::tableOf(dim->type);
  const auto* found = std::ranges::find(kNamed, name, &NamedVariable::name);
  return found == std::end(kNamed) ? Table::kNone : found->table;
}

// Names of variables are in capitals; the file holds more, which goes by other names.
bool isVariableName(std::string_view name) {
  return std::ranges::all_of(name, [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

bool isPoint(const Fields& fields, const Field& field) {
  return std::holds_alternative<Point>(field.value) ||
         fields.find(field.name, field.index, Part::kX) != nullptr;
}

bool isColor(const Fields& fields, const Field& field) {
  return field.name == "CECOLOR" || field.name.starts_with("DIMCLR") || field.name == "DIMTFILLCLR" ||
         fields.find(field.name, field.index, Part::kRgb) != nullptr;
}

const Field* firstOf(const Fields& fields, std::string_view name) {
  const auto found = std::ranges::find(fields.all(), name, &Field::name);
  return found == fields.all().end() ? nullptr : &*found;
}

// Of an object that is in no table.
std::optional<Variable> plainName(const Drawing& drawing, const DwgStorage& storage, RecordId id) {
  const StoredValue name = readPlainName(storage, drawing.record(id));
  const auto* stored = std::get_if<std::string>(&name);
  if (stored == nullptr) return std::nullopt;
  return decodeStored(*stored, storage.facts().codePage);
}

// Of what a handle names; absent for what has no name here.
std::optional<Variable> namedValue(const Drawing& drawing, const DwgStorage& storage,
                                   std::string_view variable, Handle handle) {
  if (variable == "HANDSEED") return handleText(handle);
  if (handle == 0) return std::wstring();
  const RecordId id = storage.recordOf(handle);
  if (variable == "CMLSTYLE" && id != kNoRecord) return plainName(drawing, storage, id);
  const bool named = id != kNoRecord && drawing.record(id).hasTableName();
  if (!named) return std::nullopt;
  const NameId name = drawing.recordName(id);
  return name == kNoName ? std::wstring() : drawing.names().text(name);
}

std::optional<Variable> valueOf(const Drawing& drawing, const DwgStorage& storage, const Fields& fields,
                                const Field& field) {
  if (isPoint(fields, field)) return std::nullopt;
  if (isColor(fields, field)) return std::int64_t{fields.color(field.name).number};
  if (const auto* real = std::get_if<double>(&field.value))
    return isAngle(field.name) ? degreesFromRadians(*real) : *real;
  if (const auto* integer = std::get_if<std::int64_t>(&field.value)) return *integer;
  if (const auto* date = std::get_if<Date>(&field.value))
    return date->days + date->milliseconds / kMillisecondsOfDay;
  if (std::holds_alternative<HandleReference>(field.value))
    return namedValue(drawing, storage, field.name, fields.handle(field.name).value_or(0));
  if (std::holds_alternative<std::monostate>(field.value)) return std::nullopt;
  return storage.text(field.value);
}

std::wstring pointValue(const Fields& fields, const Field& field) {
  const Point point = fields.point(field.name);
  const bool flat = field.type == BitType::k2RD || field.type == BitType::k2BD ||
                    (field.part == Part::kX && fields.find(field.name, 0, Part::kZ) == nullptr);
  std::wstring text = shortNumberText(point.x) + L", " + shortNumberText(point.y);
  if (!flat) text += L", " + shortNumberText(point.z);
  return text;
}

std::wstring shown(std::string_view name) { return {name.begin(), name.end()}; }

base::Failure misfit(std::string_view name) { return {shown(name), L"The value does not fit the variable"}; }

// The handle of what a name names; it enters the file when it was only implied.
base::Result<Handle> handleOfName(Drawing& drawing, const DwgStorage& storage, Table table,
                                  const std::wstring& name) {
  if (name.empty() || name == L".") return Handle{0};
  RecordId id = drawing.find(table, std::wstring_view(name));
  if (id == kNoRecord && table == Table::kBlock) id = drawing.find(table, std::wstring_view(L"_" + name));
  if (id == kNoRecord) return base::Failure{name, L"The drawing has no record of this name"};
  if (const base::Status status = drawing.materialise(id); !status) return status.failure();
  return table == Table::kBlock ? storage.entryOf(drawing.record(id)) : drawing.handle(id).value_or(0);
}

// The change that sets the variable of this field.
base::Status variableChange(Drawing& drawing, const DwgStorage& storage, const Fields& fields,
                            const Field& field, const Variable& value, FieldChanges& changes) {
  const auto* text = std::get_if<std::wstring>(&value);
  if (field.type == BitType::kHandle) {
    const Table table = tableOfVariable(field.name);
    if (text == nullptr || table == Table::kNone) return misfit(field.name);
    const base::Result<Handle> handle = handleOfName(drawing, storage, table, *text);
    if (!handle.ok()) return handle.failure();
    changes.setHandle(field.name, handle.value());
    return {};
  }
  if (field.type == BitType::kText) {
    if (text == nullptr) return misfit(field.name);
    changes.set(field.name, storage.fieldText(encodeStored(*text, storage.facts().codePage)));
    return {};
  }
  if (text != nullptr || isPoint(fields, field) || field.type == BitType::kDate) return misfit(field.name);
  if (std::holds_alternative<double>(field.value)) {
    const std::optional<double> real = asReal(value);
    if (!real) return misfit(field.name);
    changes.set(field.name, Value(isAngle(field.name) ? *real * kRadiansPerDegree : *real));
    return {};
  }
  const bool bit = field.type == BitType::kB;
  const auto integer = bit ? asInteger(value, 0, 1) : asInteger(value);
  if (!integer) return misfit(field.name);
  if (isColor(fields, field)) {
    changes.setColor(field.name, colorOf(*integer));
  } else {
    changes.set(field.name, Value(*integer));
  }
  return {};
}

}  // namespace

const Fields& DwgStorage::headerFields(const Drawing& drawing) const {
  const Record& header = drawing.record(records_.header);
  if (!headerLook_.fields || headerLook_.at.edits != header.edits) {
    headerLook_.at.edits = header.edits;
    const ObjectBytes section = object(header);
    headerLook_.owner = section.owner;
    headerLook_.fields.emplace(readHeader(section.data, version()));
  }
  return *headerLook_.fields;
}

std::optional<Variable> DwgStorage::headerVariable(const Drawing& drawing, std::string_view name) const {
  if (name == kMeasurement) {
    const std::optional<std::int64_t> value = file_->measurement();
    return value ? std::optional<Variable>(*value) : std::nullopt;
  }
  const Fields& fields = headerFields(drawing);
  if (const Field* field = firstOf(fields, name); field != nullptr && isVariableName(name))
    return valueOf(drawing, *this, fields, *field);
  return packedVariable(fields, name);
}

std::vector<HeaderValue> DwgStorage::headerVariables(const Drawing& drawing) const {
  std::vector<HeaderValue> values;
  const Fields& fields = headerFields(drawing);
  std::string_view last;
  for (const Field& field : fields.all()) {
    if (field.name == last || !isVariableName(field.name)) continue;
    last = field.name;
    if (isPoint(fields, field)) {
      values.push_back({std::string(field.name), pointValue(fields, field)});
    } else if (const auto value = valueOf(drawing, *this, fields, field)) {
      values.push_back({std::string(field.name), variableText(*value)});
    }
  }
  std::vector<std::string_view> others = packedVariables(fields);
  others.push_back(kMeasurement);
  for (const std::string_view name : others)
    if (const auto value = headerVariable(drawing, name))
      values.push_back({std::string(name), variableText(*value)});
  return values;
}

base::Status DwgStorage::setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) {
  const std::optional<Variable> present = headerVariable(drawing, name);
  if (present && *present == value) return {};
  if (name == kMeasurement)
    return base::Failure{shown(name), L"A drawing of this format cannot change this property"};
  Drawing::ChangeScope scope(drawing);
  FieldChanges changes;
  base::Status status;
  const Fields fields = headerFields(drawing);
  if (const Field* field = firstOf(fields, name); field != nullptr && isVariableName(name)) {
    status = variableChange(drawing, *this, fields, *field, value, changes);
  } else if (!present) {
    status = base::Failure{shown(name), L"The drawing's version does not have this variable"};
  } else if (const auto integer = asInteger(value, -3, 32767);
             !integer || !setPackedVariable(fields, name, *integer, changes)) {
    status = misfit(name);
  }
  if (status) {
    const Record& header = drawing.record(records_.header);
    const std::string now(object(header).data);
    const base::Result<std::string> section = rewriteHeader(now, version(), changes);
    if (!section.ok()) {
      status = section.failure();
    } else if (section.value() != now) {
      drawing.setEdits(records_.header, stateBehind(header, {section.value(), 0}));
    }
  }
  if (!status) scope.rollBack();
  return status;
}

}  // namespace cad::dwg
