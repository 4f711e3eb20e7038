// New records of symbol tables.

#include <algorithm>

#include "embedded/drawing/dim_variables.h"
#include "embedded/drawing/names.h"
#include "embedded/dxf/group_writer.h"
#include "embedded/dxf/record_builder.h"
#include "embedded/dxf/record_tools.h"

namespace cad::dxf {
namespace {

struct TableForm {
  Table table;
  const char* type;
  const char* subclass;
};

constexpr TableForm kForms[] = {
    {Table::kLayer, "LAYER", "AcDbLayerTableRecord"},
    {Table::kLinetype, "LTYPE", "AcDbLinetypeTableRecord"},
    {Table::kTextStyle, "STYLE", "AcDbTextStyleTableRecord"},
    {Table::kDimStyle, "DIMSTYLE", "AcDbDimStyleTableRecord"},
    {Table::kAppId, "APPID", "AcDbRegAppTableRecord"},
    {Table::kBlockRecord, "BLOCK_RECORD", "AcDbBlockTableRecord"},
};

const TableForm* formOf(Table table) {
  const auto found = std::find_if(std::begin(kForms), std::end(kForms),
                                  [&](const TableForm& form) { return form.table == table; });
  return found == std::end(kForms) ? nullptr : found;
}

// A name that entities use already is taken as it is; the file has it, good or bad.
base::Status checkName(const Drawing& drawing, Table table, std::wstring_view name) {
  if (table == Table::kAppId || drawing.find(table, name) != kNoRecord) return {};
  std::wstring_view rest = name;
  if (table == Table::kBlockRecord && rest.front() == L'*') rest.remove_prefix(1);
  if (hasForbiddenCharacter(rest)) return failure(name, L"The name holds a character that names cannot have");
  return {};
}

// Layers name the plot style that the drawing's other layers name; without one the group is left out.
void addPlotStyle(const Drawing& drawing, RecordBuilder& builder) {
  for (const RecordId id : drawing.tableRecords(Table::kLayer)) {
    const Record& record = drawing.record(id);
    if ((record.flags & Record::kImplied) != 0) continue;
    const RecordGroups groups(builder.target(), record);
    const Group* style = groups.find(390);
    if (style == nullptr) continue;
    builder.stored(390, style->value);
    return;
  }
}

void addLayerGroups(const Drawing& drawing, RecordBuilder& builder) {
  builder.integer(70, 0).integer(62, 7);
  builder.stored(6, builder.since(Version::kR2000) ? "Continuous" : "CONTINUOUS");
  if (!builder.since(Version::kR2000)) return;
  builder.integer(370, -3);
  addPlotStyle(drawing, builder);
}

void addDimStyleGroups(const Drawing& drawing, RecordBuilder& builder) {
  builder.integer(70, 0);
  const Version version = builder.target().facts().version;
  // Since 2000 a style lists only what differs from the defaults; before, readers expected every variable.
  if (version < Version::kR2000) {
    for (const DimVariableInfo& info : kDimVariables) {
      if (info.isOfHeaderOnly() || !info.existsIn(version) || info.type == DimType::kTextStyle) continue;
      const int code = info.groups.old != 0 ? info.groups.old : info.groups.number;
      if (info.type == DimType::kReal)
        builder.real(code, info.defaultValue);
      else if (info.isInteger())
        builder.integer(code, static_cast<std::int64_t>(info.defaultValue));
      else
        builder.stored(code, {});
    }
  }
  const RecordId style = drawing.find(Table::kTextStyle, std::wstring_view(L"Standard"));
  if (version == Version::kR12 || style == kNoRecord) return;
  if (const std::optional<Handle> handle = drawing.handle(style)) builder.handle(340, *handle);
}

void addBlockRecordGroups(RecordBuilder& builder) {
  if (builder.since(Version::kR2000)) builder.handle(340, 0);
  if (builder.since(Version::kR2007)) builder.integer(70, 0).integer(280, 1).integer(281, 0);
}

void addOwnGroups(const Drawing& drawing, Table table, RecordBuilder& builder) {
  switch (table) {
    case Table::kLayer:
      return addLayerGroups(drawing, builder);
    case Table::kLinetype:
      builder.integer(70, 0).stored(3, {}).integer(72, 65).integer(73, 0).real(40, 0);
      return;
    case Table::kTextStyle:
      builder.integer(70, 0).real(40, 0).real(41, 1).real(50, 0).integer(71, 0).real(42, 0.2);
      builder.stored(3, "txt").stored(4, {});
      return;
    case Table::kDimStyle:
      return addDimStyleGroups(drawing, builder);
    case Table::kAppId:
      builder.integer(70, 0);
      return;
    default:
      return addBlockRecordGroups(builder);
  }
}

}  // namespace

base::Result<RecordId> DxfStorage::add(Drawing& drawing, Table table, std::wstring_view name,
                                       RecordId implied) {
  const TableForm* form = formOf(table);
  if (form == nullptr || (table == Table::kBlockRecord && facts_.version < Version::kR13))
    return failure(name, L"Records of this table are not made");
  if (const base::Status status = checkName(drawing, table, name); !status.ok()) return status.failure();
  const base::Result<RecordId> before = endOfTable(drawing, table);
  if (!before.ok()) return before.failure();

  RecordBuilder builder(*this);
  builder.stored(0, form->type);
  const RecordId head = tableHead(table);
  if (facts_.version >= Version::kR13) {
    if (const std::optional<Handle> handle = takeHandle(drawing))
      builder.handle(table == Table::kDimStyle ? 105 : 5, *handle);
    const std::optional<Handle> tableHandle = drawing.handle(head);
    if (tableHandle && writesOwners(drawing, *this)) builder.handle(330, *tableHandle);
  }
  builder.subclass("AcDbSymbolTableRecord").subclass(form->subclass).text(2, name);
  addOwnGroups(drawing, table, builder);

  const Record& headRecord = drawing.record(head);
  const RecordGroups headGroups(*this, headRecord);
  if (const Group* count = headGroups.find(70)) {
    const std::int64_t members = integerValue(*count, dialect_).value_or(0);
    drawing.setEdits(head,
                     withValue(headRecord, *count, integerBytes(dialect_, 70, members + 1, count->value)));
  }
  return insert(drawing,
                {RecordKind::kTableRecord, table, before.value(), kNoRecord, builder.take(), implied});
}

}  // namespace cad::dxf
