// kivcvt fmt: CVT files in the form in which the dialog saves them.

#include <algorithm>

#include "base/paths.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/specifications/specification_check.h"

namespace kivcli {
namespace {

int format(Session& session, const Arguments& arguments, const std::wstring& file) {
  const std::wstring path = base::fullPath(file);
  const std::wstring target = arguments.outputFile.empty() ? path : base::fullPath(arguments.outputFile);
  KivFormatReport report{};
  session.specifications().format(path.c_str(), arguments.checksOnly ? L"" : target.c_str(),
                                  arguments.dropsLines ? 1 : 0, &report);
  switch (report.end) {
    case kKivInForm:
      if (arguments.outputFile.empty()) return kAllDone;
      [[fallthrough]];
    case kKivFormatted:
      printLine(tr(arguments.checksOnly ? L"%1: not in the form of the dialog" : L"%1: written",
                   {arguments.outputFile.empty() ? file : arguments.outputFile}));
      return arguments.checksOnly ? kSomeFailed : kAllDone;
    case kKivLinesLost:
      complainOfLines(file, report.diagnostics, report.diagnosticCount);
      complain(file + L": " +
               tr(L"these lines would be lost or would say what they are read as; nothing is written without "
                  L"--drop"));
      return kSomeFailed;
    default:
      complain(file + L": " + translated(report.failure));
      return kUnusable;
  }
}

}  // namespace

int runFmt(const Arguments& arguments) {
  base::Result<std::unique_ptr<Session>> session = Session::start();
  if (!session) {
    complainOfProgram(session.failure());
    return kUnusable;
  }
  int worst = kAllDone;
  for (const std::wstring& file : arguments.files) {
    worst = std::max(worst, format(*session.value(), arguments, file));
  }
  return worst;
}

}  // namespace kivcli
