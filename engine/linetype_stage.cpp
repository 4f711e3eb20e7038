// Loading of linetypes.

#include "acdb.h"
#include "base/fold.h"
#include "engine/messages.h"
#include "engine/resource_stages.h"
#include "engine/table_lookup.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

// What follows the linetype file's name.
const wchar_t* reasonText(Acad::ErrorStatus status) {
  switch (status) {
    case Acad::eFileNotFound:
      return L"が見つかりません";
    case Acad::eUndefinedLineType:
      return L"にこの線種の定義がありません";
    case Acad::eInvalidInput:
      return L"の定義に誤りがあります";
    case Acad::eKeyNotFound:
      return L"の定義が使う文字スタイルが図面にありません";
    case Acad::eNotApplicable:
      return L"の定義はこの図面のバージョンでは使えません";
    default:
      return L"の定義が受け付けられませんでした";
  }
}

}  // namespace

void loadLinetypes(RunState& run) {
  for (const std::wstring& entry : run.list(kLinetypeList)) {
    const std::size_t comma = entry.find(L',');
    if (comma == std::wstring::npos) continue;
    const std::wstring file(base::trim(std::wstring_view(entry).substr(0, comma)));
    const std::wstring linetype(base::trim(std::wstring_view(entry).substr(comma + 1)));
    if (file.empty() || linetype.empty()) continue;
    if (!findInTable(run.database.linetypeTableId(), linetype).isNull()) continue;
    const Acad::ErrorStatus status = acdbLoadLineTypeFile(linetype.c_str(), file.c_str(), &run.database);
    if (status == Acad::eOk) continue;
    const std::wstring problem = linetypeProblem(linetype);
    run.problems.addProblem(problem);
    printOnCommandLine(L"\n" + problem + L": [" + file + L"]" + reasonText(status));
  }
}

}  // namespace kiv
