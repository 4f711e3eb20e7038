// Drawing variables in the header section.

#include <algorithm>
#include <cmath>

#include "embedded/drawing/dim_variables.h"
#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

// The variables that a header may hold: the group code of each, and the versions that have it.
struct HeaderVariableInfo {
  std::string_view name;  // without the dollar sign
  int code = 0;
  Version first = Version::kR12, last = Version::kUnknown;
};

using V = Version;

constexpr HeaderVariableInfo kVariables[] = {
    {"ANGBASE", 50},
    {"ANGDIR", 70},
    {"ATTDIA", 70, V::kR12, V::kR14},
    {"ATTMODE", 70},
    {"ATTREQ", 70, V::kR12, V::kR14},
    {"AUNITS", 70},
    {"AUPREC", 70},
    {"BLIPMODE", 70, V::kR12, V::kR14},
    {"CECOLOR", 62},
    {"CELTSCALE", 40, V::kR13},
    {"CELTYPE", 6},
    {"CELWEIGHT", 370, V::kR2000},
    {"CHAMFERA", 40},
    {"CHAMFERB", 40},
    {"CHAMFERC", 40, V::kR13},
    {"CHAMFERD", 40, V::kR13},
    {"CLAYER", 8},
    {"CMLJUST", 70, V::kR13},
    {"CMLSCALE", 40, V::kR13},
    {"CMLSTYLE", 2, V::kR13},
    {"COORDS", 70, V::kR12, V::kR14},
    {"DELOBJ", 70, V::kR13, V::kR14},
    {"DIMSTYLE", 2},
    {"DISPSILH", 70, V::kR13},
    {"DRAGMODE", 70, V::kR12, V::kR14},
    {"ELEVATION", 40},
    {"ENDCAPS", 280, V::kR2000},
    {"EXTNAMES", 290, V::kR2000},
    {"FILLETRAD", 40},
    {"FILLMODE", 70},
    {"HANDLING", 70, V::kR12, V::kR14},
    {"HIDETEXT", 280, V::kR2004},
    {"INSUNITS", 70, V::kR2000},
    {"JOINSTYLE", 280, V::kR2000},
    {"LIMCHECK", 70},
    {"LTSCALE", 40},
    {"LUNITS", 70},
    {"LUPREC", 70},
    {"LWDISPLAY", 290, V::kR2000},
    {"MAXACTVP", 70},
    {"MEASUREMENT", 70, V::kR14},
    {"MENU", 1},
    {"MIRRTEXT", 70},
    {"ORTHOMODE", 70},
    {"OSMODE", 70, V::kR12, V::kR14},
    {"PDMODE", 70},
    {"PDSIZE", 40},
    {"PELEVATION", 40},
    {"PICKSTYLE", 70, V::kR13, V::kR14},
    {"PLIMCHECK", 70},
    {"PLINEGEN", 70},
    {"PLINEWID", 40},
    {"PROXYGRAPHICS", 70, V::kR14},
    {"PSLTSCALE", 70},
    {"QTEXTMODE", 70},
    {"REGENMODE", 70},
    {"SHADEDGE", 70},
    {"SHADEDIF", 70},
    {"SKETCHINC", 40},
    {"SKPOLY", 70},
    {"SORTENTS", 280, V::kR2004},
    {"SPLFRAME", 70, V::kR12, V::kR2004},
    {"SPLINESEGS", 70},
    {"SPLINETYPE", 70},
    {"SURFTAB1", 70},
    {"SURFTAB2", 70},
    {"SURFTYPE", 70},
    {"SURFU", 70},
    {"SURFV", 70},
    {"TEXTSIZE", 40},
    {"TEXTSTYLE", 7},
    {"THICKNESS", 40},
    {"TILEMODE", 70},
    {"TRACEWID", 40},
    {"TREEDEPTH", 70, V::kR13},
    {"UNITMODE", 70},
    {"USERI1", 70},
    {"USERI2", 70},
    {"USERI3", 70},
    {"USERI4", 70},
    {"USERI5", 70},
    {"USERR1", 40},
    {"USERR2", 40},
    {"USERR3", 40},
    {"USERR4", 40},
    {"USERR5", 40},
    {"USRTIMER", 70},
    {"VISRETAIN", 70},
    {"WORLDVIEW", 70},
    {"XEDIT", 290, V::kR2000},
};

int headerCode(const DimVariableInfo& dim) {
  if (dim.groups.header != 0) return dim.groups.header;
  switch (dim.type) {
    case DimType::kReal:
      return 40;
    case DimType::kText:
    case DimType::kArrow:
      return 1;
    case DimType::kTextStyle:
      return 7;
    case DimType::kLinetype:
      return 6;
    default:
      return 70;
  }
}

// Dimension variables included; code 0 when there is no such variable.
HeaderVariableInfo findHeaderVariable(std::string_view name) {
  if (const DimVariableInfo* dim = findDimVariable(name))
    return {dim->name, headerCode(*dim), dim->versions.first, dim->versions.last};
  for (const HeaderVariableInfo& info : kVariables)
    if (info.name == name) return info;
  return {};
}

// One variable of the header: its name group and the groups of its value.
struct HeaderEntry {
  std::string_view name;
  const Group* values = nullptr;
  std::size_t count = 0;
};

// They begin behind the section's name.
std::vector<HeaderEntry> readEntries(const RecordGroups& groups) {
  std::vector<HeaderEntry> entries;
  bool named = false;
  for (const Group& group : groups.all()) {
    if (!named) {
      named = group.code == 2;
    } else if (group.code == 9) {
      entries.push_back({trimmed(group.value), nullptr, 0});
    } else if (!entries.empty() && group.code != 0) {
      if (entries.back().count++ == 0) entries.back().values = &group;
    }
  }
  return entries;
}

const HeaderEntry* findEntry(const std::vector<HeaderEntry>& entries, std::string_view name) {
  for (const HeaderEntry& entry : entries)
    if (entry.count > 0 && entry.name.size() == name.size() + 1 && entry.name.substr(1) == name)
      return &entry;
  return nullptr;
}

std::optional<Variable> readValue(const DxfStorage& storage, const HeaderEntry& entry) {
  if (entry.count != 1) return std::nullopt;  // points are not variables of one value
  const Group& group = *entry.values;
  switch (valueType(group.code)) {
    case ValueType::kText:
    case ValueType::kHandle:
      return storage.decode(group.value);
    case ValueType::kReal: {
      const auto value = realValue(group, storage.dialect());
      return value ? std::optional<Variable>(*value) : std::nullopt;
    }
    case ValueType::kChunk:
    case ValueType::kUnknown:
      return std::nullopt;
    default: {
      const auto value = integerValue(group, storage.dialect());
      return value ? std::optional<Variable>(*value) : std::nullopt;
    }
  }
}

// The value in the type of its group code; absent when it does not fit.
std::optional<Variable> fitted(int code, const Variable& value) {
  const ValueType type = valueType(code);
  const auto* text = std::get_if<std::wstring>(&value);
  if (type == ValueType::kText) return text != nullptr ? std::optional<Variable>(*text) : std::nullopt;
  if (text != nullptr || type == ValueType::kHandle || type == ValueType::kChunk) return std::nullopt;
  const auto* integer = std::get_if<std::int64_t>(&value);
  const double real = integer != nullptr ? static_cast<double>(*integer) : std::get<double>(value);
  if (type == ValueType::kReal) return std::isfinite(real) ? std::optional<Variable>(real) : std::nullopt;
  const double most = type == ValueType::kInt16 ? 32767 : type == ValueType::kBool ? 1 : 2147483647;
  if (std::trunc(real) != real || std::fabs(real) > most) return std::nullopt;
  return static_cast<std::int64_t>(real);
}

void writeValue(RecordBuilder& builder, int code, const Variable& value) {
  if (const auto* text = std::get_if<std::wstring>(&value))
    builder.text(code, *text);
  else if (const auto* real = std::get_if<double>(&value))
    builder.real(code, *real);
  else
    builder.integer(code, std::get<std::int64_t>(value));
}

// A dimension variable stands with the other dimension variables, everything else at the end.
std::uint32_t placeOfNew(const RecordGroups& groups, const std::vector<HeaderEntry>& entries,
                         std::string_view name) {
  std::uint32_t lastDim = 0, end = 0;
  for (const HeaderEntry& entry : entries) {
    if (entry.count == 0) continue;
    end = entry.values[entry.count - 1].end;
    if (entry.name.starts_with("$DIM")) lastDim = end;
  }
  if (name.starts_with("DIM") && lastDim != 0) return lastDim;
  // A header without variables: behind its name, and what no variable has.
  return end != 0 ? end : groups.all().back().end;
}

std::wstring shown(std::string_view name) { return {name.begin(), name.end()}; }

}  // namespace

std::optional<Point> DxfStorage::headerPoint(const Drawing& drawing, std::string_view name) const {
  if (headerRecord() == kNoRecord) return std::nullopt;
  const RecordGroups groups(*this, drawing.record(headerRecord()));
  const std::vector<HeaderEntry> entries = readEntries(groups);
  const HeaderEntry* entry = findEntry(entries, name);
  if (entry == nullptr || entry->count < 2) return std::nullopt;
  double values[3] = {};
  for (std::size_t i = 0; i < std::min<std::size_t>(entry->count, 3); ++i)
    values[i] = realValue(entry->values[i], dialect_).value_or(0);
  return Point{values[0], values[1], values[2]};
}

std::optional<Variable> DxfStorage::headerVariable(const Drawing& drawing, std::string_view name) const {
  if (headerRecord() == kNoRecord) return std::nullopt;
  const RecordGroups groups(*this, drawing.record(headerRecord()));
  const std::vector<HeaderEntry> entries = readEntries(groups);
  const HeaderEntry* entry = findEntry(entries, name);
  return entry != nullptr ? readValue(*this, *entry) : std::nullopt;
}

std::vector<HeaderValue> DxfStorage::headerVariables(const Drawing& drawing) const {
  std::vector<HeaderValue> values;
  if (headerRecord() == kNoRecord) return values;
  const RecordGroups groups(*this, drawing.record(headerRecord()));
  for (const HeaderEntry& entry : readEntries(groups)) {
    HeaderValue value{std::string(entry.name.substr(std::min<std::size_t>(entry.name.size(), 1))), {}};
    for (std::size_t i = 0; i < entry.count; ++i) {
      if (i > 0) value.text += L", ";
      value.text += valueText(*this, entry.values[i]);
    }
    values.push_back(std::move(value));
  }
  return values;
}

base::Status DxfStorage::setHeaderVariable(Drawing& drawing, std::string_view name, const Variable& value) {
  const HeaderVariableInfo info = findHeaderVariable(name);
  const std::optional<Variable> present = headerVariable(drawing, name);
  if (info.code == 0) return failure(shown(name), L"This variable is not kept in the drawing");
  if (!present && (facts_.version < info.first || facts_.version > info.last))
    return failure(shown(name), L"The drawing's version does not have this variable");
  std::optional<Variable> wanted = fitted(info.code, value);
  if (!wanted) return failure(shown(name), L"The value does not fit the variable");
  if (present && *present == *wanted) return {};

  Drawing::ChangeScope scope(drawing);
  if (headerRecord() == kNoRecord) {
    const base::Result<RecordId> end = endOfSection(drawing, Section::kHeader);
    if (!end.ok() || headerRecord() == kNoRecord) {
      scope.rollBack();
      return failure(shown(name), L"The drawing has no header and none could be made");
    }
  }
  const RecordId id = headerRecord();
  const Record& record = drawing.record(id);
  const RecordGroups groups(*this, record);
  const std::vector<HeaderEntry> entries = readEntries(groups);
  RecordBuilder builder(*this);
  EditId edits = kNoEdit;
  if (const HeaderEntry* entry = findEntry(entries, name)) {
    const int code = entry->values->code;  // another one only when the value could not be read back
    writeValue(builder, valueType(code) == valueType(info.code) ? code : info.code, *wanted);
    edits = withGroupsFor(record, entry->values->begin, entry->values[entry->count - 1].end, builder.take());
  } else {
    builder.stored(9, "$" + std::string(name));
    writeValue(builder, info.code, *wanted);
    edits = splice(record, {placeOfNew(groups, entries, name), 0, builder.bytes()});
  }
  drawing.setEdits(id, edits);
  return {};
}

}  // namespace cad::dxf
