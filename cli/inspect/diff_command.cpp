// kivcvt diff: how two drawings differ.

#include <memory>
#include <string>

#include "base/codepage.h"
#include "base/drawing_version.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/opened_drawing.h"
#include "cli/reports/change_text.h"
#include "cli/reports/report_json.h"

namespace kivcli {

int runDiff(const Arguments& arguments) {
  const std::unique_ptr<cad::Drawing> before = openDrawing(arguments.files[0]);
  const std::unique_ptr<cad::Drawing> after = openDrawing(arguments.files[1]);
  if (before == nullptr || after == nullptr) return kUnusable;
  const cad::DrawingDifferences differences = cad::compareDrawings(*before, *after);
  for (const cad::Drawing* drawing : {before.get(), after.get()}) {
    if (const base::Status unchanged = drawing->storage().checkUnchanged(); !unchanged) {
      complainAbout(arguments.files[drawing == before.get() ? 0 : 1], unchanged.failure());
      return kUnusable;
    }
  }
  if (arguments.asJson) {
    printText(base::fromUtf8(toJson(differences).dump(2)));
  } else {
    const auto release = [](const cad::Drawing& drawing) {
      return translated(base::releaseName(drawing.facts().version));
    };
    if (before->facts().version != after->facts().version)
      printLine(tr(L"versions: %1 -> %2", {release(*before), release(*after)}));
    for (const std::wstring& line : differenceLines(differences)) printLine(line);
    printLine(countsText(countsOf(differences)));
  }
  return differences.empty() ? kAllDone : kSomeFailed;
}

}  // namespace kivcli
