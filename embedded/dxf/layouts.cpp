// The layouts of a drawing: objects that name a paper space. Files older than 2000 have none.

#include <utility>

#include "embedded/drawing/sheets.h"
#include "embedded/dxf/dxf_storage.h"
#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {
namespace {

Sheet readSheet(const Drawing& drawing, const DxfStorage& storage, RecordId object) {
  Sheet sheet;
  std::string scratch;
  std::string_view subclass;
  GroupCursor cursor(storage.bytes(drawing.record(object), scratch), storage.dialect());
  while (cursor.next()) {
    const Group& group = cursor.group();
    if (group.code == 100) subclass = trimmed(group.value);
    const auto whole = [&] { return integerValue(group, storage.dialect()).value_or(0); };
    if (group.code == 72 && subclass == "AcDbPlotSettings" && whole() == 0)
      sheet.layout.millimetres = kMillimetresPerInch;
    if (subclass != "AcDbLayout") continue;
    if (group.code == 1) sheet.layout.name = storage.decode(trimmed(group.value));
    if (group.code == 71) sheet.order = whole();
    if (group.code != 330) continue;
    const RecordId table = drawing.findHandle(handleValue(group).value_or(0));
    if (table != kNoRecord) sheet.layout.block = drawing.find(Table::kBlock, drawing.recordName(table));
  }
  return sheet;
}

}  // namespace

std::vector<Layout> DxfStorage::layouts(const Drawing& drawing) const {
  std::vector<Sheet> sheets;
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    const Record& record = drawing.record(id);
    if (record.kind != RecordKind::kObject || record.erased() || typeName(record) != "LAYOUT") continue;
    sheets.push_back(readSheet(drawing, *this, id));
  }
  return layoutsOf(drawing, std::move(sheets));
}

}  // namespace cad::dxf
