// Setting up of text styles.

#include "base/fold.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "engine/refusal.h"
#include "engine/resource_stages.h"
#include "engine/table_lookup.h"
#include "platform/host_releases.h"
#include "spec/cvt_lines.h"
#include "spec/item_kinds.h"

namespace kiv {
namespace {

using Status = Acad::ErrorStatus;

bool isShapeFile(const std::wstring& font) {
  return font.size() >= 4 && base::equalFolded(std::wstring_view(font).substr(font.size() - 4), L".SHX");
}

Status setFont(AcDbTextStyleTableRecord& style, const std::wstring& font, const std::wstring& bigFont) {
  const bool isShape = isShapeFile(font);
  const Status status = isShape ? style.setFileName(font.c_str()) : setTypeface(style, font.c_str());
  if (status != Acad::eOk) return status;
  if (isShape && !bigFont.empty()) return style.setBigFontFileName(bigFont.c_str());
  // Big fonts go with shape fonts only. A style that has none stays untouched.
  AcString present;
  if (style.bigFontFileName(present) == Acad::eOk && present.isEmpty()) return status;
  return style.setBigFontFileName(L"");
}

Status openOrMake(AcDbDatabase& database, const std::wstring& name,
                  AcDbObjectPointer<AcDbTextStyleTableRecord>& style) {
  const AcDbObjectId id = findInTable(database.textStyleTableId(), name);
  if (!id.isNull()) return style.open(id, AcDb::kForWrite);
  style.create();
  const Status named = style->setName(name.c_str());
  if (named != Acad::eOk) return named;
  AcDbTextStyleTablePointer table(&database, AcDb::kForWrite);
  return table.openStatus() == Acad::eOk ? table->add(style.object()) : table.openStatus();
}

}  // namespace

void setUpTextStyles(RunState& run) {
  for (const std::wstring& entry : run.list(kTextStyleList)) {
    const std::vector<std::wstring> fields = splitFields(entry);
    if (fields.size() < 2 || fields[0].empty()) continue;
    const bool hasBigFont = fields.size() > 2 && fields[2].find(L"----") == std::wstring::npos;
    AcDbObjectPointer<AcDbTextStyleTableRecord> style;
    Status status = openOrMake(run.database, fields[0], style);
    if (status == Acad::eOk) {
      status = setFont(*style.object(), fields[1], hasBigFont ? fields[2] : std::wstring());
    }
    if (status != Acad::eOk) {
      run.problems.addNote({itemKind(kFontKind)->key, fields[0], refusalOf(status), 1, Refuser::kDrawing});
    }
  }
}

}  // namespace kiv
