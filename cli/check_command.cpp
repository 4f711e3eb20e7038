#include <algorithm>

#include "cli/commands.h"
#include "cli/console.h"
#include "cli/session.h"
#include "cli/specification_report.h"

namespace kivcli {
namespace {

int checkFile(Session& session, const std::wstring& file) {
  const KivSpecificationReport report = session.checkSpecification(fullPath(file));
  if (!reportSpecification(file, report)) return kUnusable;
  const int count = droppedLines(report);
  const std::wstring dropped = report.diagnosticCount == 0 ? L"every line is understood"
                               : count == 0                ? L"no line is dropped"
                                                           : droppedText(count);
  printLine(file + L": " + counted(report.settings, L"setting", L"settings") + L", " +
            counted(report.entries, L"list entry", L"list entries") + L"; " + dropped);
  return count == 0 ? kAllDone : kSomeFailed;
}

}  // namespace

int runCheck(const Arguments& arguments) {
  base::Result<std::unique_ptr<Session>> session = Session::start();
  if (!session) {
    complain(L"kivcvt: " + session.failure().text());
    return kUnusable;
  }
  int worst = kAllDone;
  for (const std::wstring& file : arguments.files) {
    worst = std::max(worst, checkFile(*session.value(), file));
  }
  return worst;
}

}  // namespace kivcli
