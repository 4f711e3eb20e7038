// The layouts of a drawing: objects that name a paper space. Files older than 2000 have none.

#include <utility>

#include "embedded/drawing/sheets.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {
namespace {

constexpr int kInches = 0;

}  // namespace

std::vector<Layout> DwgStorage::layouts(const Drawing& drawing) const {
  std::vector<Sheet> sheets;
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    const Record& record = drawing.record(id);
    if (record.kind != RecordKind::kObject || record.erased() || typeName(record) != "LAYOUT") continue;
    const Fields& fields = this->fields(record);
    const Field* name = fields.find("name");
    sheets.push_back(
        {{name == nullptr ? std::wstring() : text(name->value), blockOf(fields.handle("block").value_or(0)),
          fields.integer("plot unit") == kInches ? kMillimetresPerInch : 1},
         fields.integer("tab order")});
  }
  return layoutsOf(drawing, std::move(sheets));
}

Point DwgStorage::basePoint(const Drawing& drawing, RecordId block) const {
  if (block == drawing.modelSpace()) return headerFields(drawing).point("INSBASE");
  const RecordId entry = recordOf(entryOf(drawing.record(block)));
  return entry == kNoRecord ? Point{} : fields(drawing.record(entry)).point("base point");
}

}  // namespace cad::dwg
