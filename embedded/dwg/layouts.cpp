// The layouts of a drawing: objects that name a paper space. Files older than 2000 have none.

#include <algorithm>
#include <utility>

#include "embedded/drawing/drawing.h"
#include "embedded/dwg/dwg_storage.h"

namespace cad::dwg {
namespace {

constexpr wchar_t kModelName[] = L"Model", kOnlyPaperName[] = L"Layout1";
constexpr double kMillimetresPerInch = 25.4;
constexpr int kInches = 0;

struct Sheet {
  Layout layout;
  std::int64_t order = 0;
};

}  // namespace

std::vector<Layout> DwgStorage::layouts(const Drawing& drawing) const {
  std::vector<Sheet> sheets;
  for (RecordId id = 0; id < drawing.recordCount(); ++id) {
    const Record& record = drawing.record(id);
    if (record.kind != RecordKind::kObject || record.erased() || typeName(record) != "LAYOUT") continue;
    const Fields& fields = this->fields(record);
    const Field* name = fields.find("name");
    Sheet sheet{
        {name == nullptr ? std::wstring() : text(name->value), blockOf(fields.handle("block").value_or(0)),
         fields.integer("plot unit") == kInches ? kMillimetresPerInch : 1},
        fields.integer("tab order")};
    if (sheet.layout.block != kNoRecord && sheet.layout.block != drawing.modelSpace())
      sheets.push_back(std::move(sheet));
  }
  std::ranges::stable_sort(sheets, {}, &Sheet::order);
  std::vector<Layout> layouts{{kModelName, drawing.modelSpace()}};
  for (Sheet& sheet : sheets) layouts.push_back(std::move(sheet.layout));
  if (std::ranges::find(layouts, drawing.paperSpace(), &Layout::block) == layouts.end())
    layouts.push_back({kOnlyPaperName, drawing.paperSpace()});
  return layouts;
}

Point DwgStorage::basePoint(const Drawing& drawing, RecordId block) const {
  if (block == drawing.modelSpace()) return headerFields(drawing).point("INSBASE");
  const RecordId entry = recordOf(entryOf(drawing.record(block)));
  return entry == kNoRecord ? Point{} : fields(drawing.record(entry)).point("base point");
}

}  // namespace cad::dwg
