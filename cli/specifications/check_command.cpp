// kivcvt check: what the reader makes of CVT files, alone or for given drawings.

#include <algorithm>

#include "base/codepage.h"
#include "base/paths.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/language/language.h"
#include "cli/reports/report_json.h"
#include "cli/specifications/drawing_names.h"
#include "cli/specifications/specification_check.h"

namespace kivcli {
namespace {

int statusOf(const KivSpecificationReport& report) {
  if (report.usable == 0) return kUnusable;
  return droppedLines(report) == 0 ? kAllDone : kSomeFailed;
}

void tell(const std::wstring& file, const KivSpecificationReport& report) {
  if (!reportSpecification(file, report)) return;
  const int count = droppedLines(report);
  const std::wstring dropped = report.diagnosticCount == 0 ? tr(L"every line is understood")
                               : count == 0                ? tr(L"no line is dropped")
                                                           : droppedText(count);
  printLine(file + L": " +
            tr(L"%1, %2; %3", {counted(report.settings, L"1 setting", L"%1 settings"),
                               counted(report.entries, L"1 list entry", L"%1 list entries"), dropped}));
}

Json asJson(const std::wstring& file, const KivSpecificationReport& report) {
  Json json;
  json["file"] = readable(file);
  json["usable"] = report.usable == 1;
  if (report.usable == 0) json["failure"] = readable(translated(report.failure));
  json["settings"] = report.settings;
  json["entries"] = report.entries;
  json["droppedLines"] = droppedLines(report);
  json["diagnostics"] = Json::array();
  for (int i = 0; i < report.diagnosticCount; ++i) {
    const KivDiagnostic& diagnostic = report.diagnostics[i];
    json["diagnostics"].push_back({{"number", diagnostic.number},
                                   {"line", diagnostic.line},
                                   {"dropped", diagnostic.dropped == 1},
                                   {"reason", readable(translated(diagnostic.reason))},
                                   {"text", readable(diagnostic.text)}});
  }
  return json;
}

}  // namespace

int runCheck(const Arguments& arguments) {
  base::Result<std::unique_ptr<Session>> session = Session::start();
  if (!session) {
    complainOfProgram(session.failure());
    return kUnusable;
  }
  NamesOfDrawings names;
  for (const std::wstring& drawing : arguments.drawings) {
    if (base::Status taken = names.take(drawing); !taken) {
      complainOfProgram(taken.failure());
      return kUnusable;
    }
  }
  const std::vector<KivDrawingNames>& given = names.given();
  for (const base::Failure& failure : names.unreadable()) complainOfProgram(failure);
  int worst = names.unreadable().empty() ? kAllDone : kSomeFailed;
  Json json = Json::array();
  for (const std::wstring& file : arguments.files) {
    KivSpecificationReport report{};
    session.value()->specifications().checkFor(base::fullPath(file).c_str(), given.data(),
                                               static_cast<int>(given.size()), &report);
    worst = std::max(worst, statusOf(report));
    if (arguments.asJson) {
      json.push_back(asJson(file, report));
    } else {
      tell(file, report);
    }
  }
  if (arguments.asJson) printText(base::fromUtf8(json.dump(2)));
  return worst;
}

}  // namespace kivcli
