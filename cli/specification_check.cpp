#include "cli/specification_check.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/paths.h"
#include "cli/commands.h"
#include "cli/console.h"

namespace kivcli {
namespace {

// "FILE:LINE: dropped: REASON: TEXT" or "FILE:LINE: warning: ...", without the line for the whole file.
std::wstring diagnosticLine(const std::wstring& file, const KivDiagnostic& diagnostic) {
  std::wstring line = file;
  if (diagnostic.line > 0) line += L":" + std::to_wstring(diagnostic.line);
  line += diagnostic.dropped != 0 ? L": dropped: " : L": warning: ";
  line += diagnostic.reason;
  if (diagnostic.text != nullptr && diagnostic.text[0] != L'\0')
    line += std::wstring(L": ") + diagnostic.text;
  return line;
}

std::wstring counted(int count, const wchar_t* one, const wchar_t* many) {
  return std::to_wstring(count) + L" " + (count == 1 ? one : many);
}

int checkFile(Session& session, const std::wstring& file) {
  const KivSpecificationReport report = session.checkSpecification(base::fullPath(file));
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

bool reportSpecification(const std::wstring& file, const KivSpecificationReport& report) {
  if (report.usable == 0) {
    complain(file + L": " + (report.failure != nullptr ? report.failure : L"cannot be used"));
    return false;
  }
  for (int i = 0; i < report.diagnosticCount; ++i) {
    complain(diagnosticLine(file, report.diagnostics[i]));
  }
  return true;
}

int droppedLines(const KivSpecificationReport& report) {
  int count = 0, last = 0;
  for (int i = 0; i < report.diagnosticCount; ++i) {
    const KivDiagnostic& diagnostic = report.diagnostics[i];
    if (diagnostic.dropped == 0 || (count > 0 && diagnostic.line == last)) continue;
    last = diagnostic.line;
    ++count;
  }
  return count;
}

std::wstring droppedText(int lines) { return counted(lines, L"line is dropped", L"lines are dropped"); }

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
