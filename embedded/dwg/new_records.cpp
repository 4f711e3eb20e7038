// New records of symbol tables.

#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/drawing.h"
#include "embedded/drawing/names.h"
#include "embedded/drawing/stored_text.h"
#include "embedded/dwg/dim_fields.h"
#include "embedded/dwg/dwg_storage.h"
#include "embedded/dwg/special_properties.h"

namespace cad::dwg {
namespace {

constexpr int kUsualColor = 7;
constexpr double kUsualLastHeight = 0.2;

base::Failure failure(std::wstring_view place, const wchar_t* reason) {
  return {std::wstring(place), reason};
}

std::optional<ObjectKind> kindOf(Table table) {
  switch (table) {
    case Table::kLayer:
      return ObjectKind::kLayer;
    case Table::kLinetype:
      return ObjectKind::kLinetype;
    case Table::kTextStyle:
      return ObjectKind::kStyle;
    case Table::kDimStyle:
      return ObjectKind::kDimStyle;
    case Table::kAppId:
      return ObjectKind::kAppId;
    default:
      return std::nullopt;
  }
}

// A name that entities use already is taken as it is; the file has it, good or bad.
base::Status checkName(const Drawing& drawing, Table table, std::wstring_view name) {
  if (table == Table::kAppId || drawing.find(table, name) != kNoRecord) return {};
  if (hasForbiddenCharacter(name)) return failure(name, L"The name holds a character that names cannot have");
  return {};
}

// What all layers of a drawing name alike.
void copyFromLayers(const Drawing& drawing, const DwgStorage& storage, FieldChanges& values) {
  for (const RecordId id : drawing.tableRecords(Table::kLayer)) {
    if (drawing.record(id).implied()) continue;
    const Fields& layer = storage.fields(drawing.record(id));
    for (const std::string_view name : {"plot style", "material", "visual style"})
      if (const Field* field = layer.find(name)) values.set(name, field->value);
    return;
  }
}

base::Status addLayerValues(Drawing& drawing, const DwgStorage& storage, FieldChanges& values) {
  values.setColor("color", colorOf(kUsualColor));
  copyFromLayers(drawing, storage, values);
  const RecordId continuous = drawing.find(Table::kLinetype, std::wstring_view(L"Continuous"));
  if (const base::Status status = drawing.materialise(continuous); !status) return status;
  values.setHandle("linetype", drawing.handle(continuous).value_or(0));
  return {};
}

void addLinetypeValues(const DwgStorage& storage, FieldChanges& values) {
  values.set("dash count", 0);
  if (!hasWideTexts(storage.version())) values.set("texts", Value(std::string(256, '\0')));
}

void addStyleValues(const DwgStorage& storage, FieldChanges& values) {
  values.set("last height", Value(kUsualLastHeight));
  values.set("font", storage.fieldText("txt"));
}

base::Status addDimStyleValues(Drawing& drawing, const DwgStorage& storage, FieldChanges& values) {
  for (const DimVariableInfo& info : kDimVariables) {
    if (info.isOfHeaderOnly() || !info.existsIn(storage.version())) continue;
    const base::Status status = setStyleField(drawing, storage, info, defaultValue(info), values);
    if (!status) return status;
  }
  return {};
}

}  // namespace

base::Result<RecordId> DwgStorage::add(Drawing& drawing, Table table, std::wstring_view name,
                                       RecordId implied) {
  const std::optional<ObjectKind> kind = kindOf(table);
  if (!kind || control(table) == kNoRecord) return failure(name, L"Records of this table are not made");
  base::Status status = checkName(drawing, table, name);
  NewObject object{*kind, takeHandle(), {}};
  object.values.set("name", fieldText(encodeStored(name, facts().codePage)));
  object.values.setHandle("owner", drawing.handle(control(table)).value_or(0));
  if (status && table == Table::kLayer) status = addLayerValues(drawing, *this, object.values);
  if (table == Table::kLinetype) addLinetypeValues(*this, object.values);
  if (table == Table::kTextStyle) addStyleValues(*this, object.values);
  if (status && table == Table::kDimStyle) status = addDimStyleValues(drawing, *this, object.values);
  if (status) status = enlist(drawing, table, object.handle);
  if (!status) return status.failure();
  return enter(drawing, object,
               {.kind = RecordKind::kTableRecord, .table = table, .owner = kNoRecord, .implied = implied});
}

}  // namespace cad::dwg
