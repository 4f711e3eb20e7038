#include "embedded/objects/dim_values.h"

#include "base/fold.h"
#include "embedded/objects/object_access.h"
#include "embedded/objects/values.h"

namespace cad {
namespace {

// What holds for a dimension or leader without an override of its own: its style's value, else the default;
// of a style the default.
const Variable& inherited(const AcDbObject& object, const DimVariableInfo& info) {
  DatabaseState& state = *ObjectAccess::state(object);
  const Record& record = state.drawing.record(ObjectAccess::record(object));
  const RecordId style = record.table == Table::kDimStyle ? kNoRecord : dimStyleOf(state.drawing, record);
  return state.dimStyles.ofStyle(state.drawing, style).value(info);
}

Variable effective(const AcDbObject& object, const DimVariableInfo& info) {
  const Drawing* drawing = ObjectAccess::drawing(object);
  if (!drawing) return defaultValue(info);
  const RecordId record = ObjectAccess::record(object);
  if (std::optional<Variable> own = drawing->dimVariable(record, info)) return *std::move(own);
  return inherited(object, info);
}

bool sameValue(const Variable& a, const Variable& b, const DimVariableInfo& info) {
  if (info.isName() && std::holds_alternative<std::wstring>(a) && std::holds_alternative<std::wstring>(b))
    return base::equalFolded(std::get<std::wstring>(a), std::get<std::wstring>(b));
  return a == b;
}

Acad::ErrorStatus write(AcDbObject& object, const DimVariableInfo& info, const Variable& value) {
  const Acad::ErrorStatus status = checkWritable(object);
  if (status != Acad::eOk) return status;
  Drawing& drawing = *ObjectAccess::drawing(object);
  if (!info.existsIn(drawing.facts().version)) return Acad::eNotApplicable;
  const RecordId record = ObjectAccess::record(object);
  const bool isStyle = drawing.record(record).table == Table::kDimStyle;
  const bool isInherited = !isStyle && sameValue(value, inherited(object, info), info);
  const base::Status set =
      isInherited ? drawing.removeDimOverride(record, info) : drawing.setDimVariable(record, info, value);
  return set ? Acad::eOk : refusal(drawing, record, Acad::eNotApplicable);
}

// Files may have a name for it where setters have none.
bool isClosedFilledArrow(std::wstring_view name) {
  return name.empty() || base::equalFolded(name, L"_CLOSEDFILLED") ||
         base::equalFolded(name, L"CLOSEDFILLED");
}

RecordId findNamed(const Drawing& drawing, const DimVariableInfo& info, std::wstring_view name) {
  return drawing.find(tableOf(info.type), name);
}

}  // namespace

std::int64_t dimInteger(const AcDbObject& object, const DimVariableInfo& info) {
  const Variable value = effective(object, info);
  const auto* integer = std::get_if<std::int64_t>(&value);
  return integer ? *integer : static_cast<std::int64_t>(info.defaultValue);
}

double dimReal(const AcDbObject& object, const DimVariableInfo& info) {
  const Variable value = effective(object, info);
  const auto* real = std::get_if<double>(&value);
  return real ? *real : info.defaultValue;
}

std::wstring dimText(const AcDbObject& object, const DimVariableInfo& info) {
  Variable value = effective(object, info);
  auto* text = std::get_if<std::wstring>(&value);
  return text ? std::move(*text) : std::wstring();
}

const ACHAR* dimKeptText(const AcDbObject& object, const DimVariableInfo& info) {
  std::wstring& kept = ObjectAccess::buffer(object);
  kept = dimText(object, info);
  return kept.c_str();
}

AcDbObjectId dimId(const AcDbObject& object, const DimVariableInfo& info) {
  const DatabaseState* state = ObjectAccess::state(object);
  if (!state) return {};
  const std::wstring name = dimText(object, info);
  if (info.type == DimType::kArrow && isClosedFilledArrow(name)) return {};
  return state->id(findNamed(state->drawing, info, name));
}

AcCmColor dimColor(const AcDbObject& object, const DimVariableInfo& info) {
  AcCmColor color;
  color.setColorIndex(static_cast<Adesk::UInt16>(dimInteger(object, info)));
  return color;
}

Acad::ErrorStatus setDimInteger(AcDbObject& object, const DimVariableInfo& info, std::int64_t value) {
  return info.limits.hold(static_cast<double>(value)) ? write(object, info, value) : Acad::eInvalidInput;
}

Acad::ErrorStatus setDimReal(AcDbObject& object, const DimVariableInfo& info, double value) {
  return info.limits.hold(value) ? write(object, info, value) : Acad::eInvalidInput;
}

Acad::ErrorStatus setDimText(AcDbObject& object, const DimVariableInfo& info, const ACHAR* value) {
  return value ? write(object, info, std::wstring(value)) : Acad::eInvalidInput;
}

Acad::ErrorStatus setDimId(AcDbObject& object, const DimVariableInfo& info, AcDbObjectId value) {
  Acad::ErrorStatus status = checkWritable(object);
  if (status != Acad::eOk) return status;
  if (value.isNull())
    return info.type == DimType::kArrow ? write(object, info, std::wstring()) : Acad::eNullObjectId;
  RecordId record = kNoRecord;
  status = checkedRecord(object, value, tableOf(info.type), record);
  if (status != Acad::eOk) return status;
  const Drawing& drawing = *ObjectAccess::drawing(object);
  return write(object, info, drawing.names().text(drawing.name(record, Property::kName)));
}

Acad::ErrorStatus setDimName(AcDbObject& object, const DimVariableInfo& info, const ACHAR* name) {
  if (!name) return Acad::eInvalidInput;
  const Acad::ErrorStatus status = checkWritable(object);
  if (status != Acad::eOk) return status;
  const std::wstring_view wanted = name;
  if (info.type == DimType::kArrow && (wanted.empty() || wanted == L"."))
    return write(object, info, std::wstring());
  const Drawing& drawing = *ObjectAccess::drawing(object);
  if (!info.existsIn(drawing.facts().version)) return Acad::eNotApplicable;
  const RecordId record = findNamed(drawing, info, wanted);
  if (record == kNoRecord) return refusal(drawing, ObjectAccess::record(object), Acad::eKeyNotFound);
  return setDimId(object, info, ObjectAccess::state(object)->id(record));
}

Acad::ErrorStatus setDimColor(AcDbObject& object, const DimVariableInfo& info, const AcCmColor& value) {
  return value.isByColor() ? Acad::eNotApplicable : setDimInteger(object, info, value.colorIndex());
}

}  // namespace cad
