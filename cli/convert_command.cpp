// kivcvt convert: what holds for all drawings, and one conversion after another.

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/clock.h"
#include "base/codepage.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/temporary_files.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/drawing_conversion.h"
#include "cli/output_plan.h"
#include "cli/session.h"
#include "cli/specification_check.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;

base::Status makeFolder(const std::wstring& option, const std::wstring& folder) {
  const std::wstring place = option + L" " + folder;
  std::error_code error, unknown;
  const fs::path path = base::pathFromText(folder);
  if (fs::exists(path, unknown) && !fs::is_directory(path, unknown)) {
    return base::Failure{place, L"this is a file; please name a folder"};
  }
  fs::create_directories(path, error);
  if (fs::is_directory(path, unknown)) return {};
  return base::Failure{place, L"this folder cannot be made: " + base::fromUtf8(error.message())};
}

// What of a CVT file a conversion leaves undone for every drawing.
struct Undone {
  int droppedLines = 0;
  bool isEverything = false;

  void tell(const std::wstring& specification) const {
    if (droppedLines > 0)
      complain(specification + L": " + droppedText(droppedLines) + L"; what it says was not done");
    if (isEverything) {
      complain(specification + L": nothing in this file changes a drawing; drawings are saved as they are");
    }
  }
  int exitStatus() const { return droppedLines > 0 || isEverything ? kSomeFailed : kAllDone; }
};

// Everything that is wrong for all drawings is found before the first one is opened.
base::Status prepare(Session& session, const Arguments& arguments, Undone& undone) {
  const std::wstring specification = base::fullPath(arguments.specification);
  // Files that it names are found beside it first.
  session.host().setSupportPath(cad::usualSupportPath(base::pathFromText(specification).parent_path()));
  const KivSpecificationReport report = session.checkSpecification(specification);
  if (!reportSpecification(arguments.specification, report)) {
    return base::Failure{L"", L"nothing was converted; `kivcvt check` tells more about the CVT file"};
  }
  undone = {droppedLines(report), report.changes == 0};
  if (base::Status made = makeFolder(L"--out", arguments.outputFolder); !made) return made;
  base::removeAbandonedTemporaryFiles(base::pathFromText(arguments.outputFolder));
  if (!arguments.logFolder.empty()) return makeFolder(L"--log", arguments.logFolder);
  return {};
}

// Empty for an empty folder.
std::wstring logFilePath(const std::wstring& folder) {
  if (folder.empty()) return {};
  const std::filesystem::path path = base::pathFromText(base::fullPath(folder));
  return base::pathText(path / base::pathFromText(base::localTimeText(base::kLogNameFormat)));
}

struct Tally {
  std::size_t converted = 0, withProblems = 0, failed = 0;

  void count(Outcome outcome) {
    ++(outcome == Outcome::kConverted      ? converted
       : outcome == Outcome::kWithProblems ? withProblems
                                           : failed);
  }
  std::wstring text() const {
    const std::size_t saved = converted + withProblems, all = saved + failed;
    std::wstring line =
        failed == 0 ? std::to_wstring(all) : std::to_wstring(saved) + L" of " + std::to_wstring(all);
    line += all == 1 ? L" drawing converted" : L" drawings converted";
    if (withProblems > 0) line += L", " + std::to_wstring(withProblems) + L" with problems";
    return line;
  }
  int exitStatus() const { return withProblems + failed == 0 ? kAllDone : kSomeFailed; }
};

}  // namespace

int runConvert(const Arguments& arguments) {
  base::Result<std::unique_ptr<Session>> session = Session::start();
  if (!session) {
    complain(L"kivcvt: " + session.failure().text());
    return kUnusable;
  }
  Undone undone;
  if (base::Status prepared = prepare(*session.value(), arguments, undone); !prepared) {
    complain(L"kivcvt: " + prepared.failure().text());
    return kUnusable;
  }

  session.value()->host().removeTemporaryFilesOnSignals();
  const fs::path outputFolder = base::pathFromText(arguments.outputFolder);
  DrawingConversion conversion(*session.value(), arguments, logFilePath(arguments.logFolder));
  Tally tally;
  for (const PlannedDrawing& drawing : planOutputs(arguments.files, outputFolder, arguments.format)) {
    tally.count(conversion.run(drawing));
  }
  undone.tell(arguments.specification);
  printLine(tally.text());
  return std::max(
      {tally.exitStatus(), undone.exitStatus(), conversion.isLogComplete() ? kAllDone : kSomeFailed});
}

}  // namespace kivcli
