// kivcvt convert: what holds for all drawings, and one conversion after another.

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>

#include "base/child_process.h"
#include "base/clock.h"
#include "base/codepage.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/temporary_files.h"
#include "base/terminal.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/convert/batch.h"
#include "cli/convert/batch_log.h"
#include "cli/convert/output_plan.h"
#include "cli/convert/progress.h"
#include "cli/convert/resume.h"
#include "cli/convert/rule_files.h"
#include "cli/convert/summary.h"
#include "cli/convert/worker.h"
#include "cli/language/language.h"
#include "cli/reports/batch_report.h"
#include "cli/reports/change_text.h"
#include "cli/session.h"
#include "cli/specifications/specification_check.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;

base::Status makeFolder(const std::wstring& option, const std::wstring& folder) {
  const std::wstring place = option.empty() ? folder : option + L" " + folder;
  std::error_code error, unknown;
  const fs::path path = base::pathFromText(folder);
  if (fs::exists(path, unknown) && !fs::is_directory(path, unknown)) {
    return base::Failure{place, tr(L"this is a file; please name a folder")};
  }
  fs::create_directories(path, error);
  if (fs::is_directory(path, unknown)) return {};
  return base::Failure{
      place, tr(L"this folder cannot be made: %1", {translated(base::fileFailure(path, error).reason)})};
}

// What of a CVT file a conversion leaves undone for every drawing.
struct Undone {
  int droppedLines = 0;
  bool isEverything = false;

  std::vector<std::wstring> lines(const std::wstring& specification) const {
    std::vector<std::wstring> lines;
    if (droppedLines > 0)
      lines.push_back(specification + L": " +
                      tr(L"%1; what it says was not done", {droppedText(droppedLines)}));
    if (isEverything) {
      lines.push_back(specification + L": " +
                      tr(L"nothing in this file changes a drawing; drawings are saved as they are"));
    }
    return lines;
  }
  int exitStatus() const { return droppedLines > 0 || isEverything ? kSomeFailed : kAllDone; }
};

void setUp(Session& session, const Arguments& arguments) {
  const fs::path specification = base::pathFromText(base::fullPath(arguments.specification));
  // Files that it names are found beside it first.
  session.host().setSupportPath(cad::usualSupportPath(specification.parent_path()));
  session.host().setWaitingForDisk(!arguments.noSync);
}

// Everything that is wrong for all drawings is found before the first one is opened.
base::Status checkRules(Session& session, const Arguments& arguments, Undone& undone, BatchReport& reports) {
  const KivSpecificationReport report = session.checkSpecification(base::fullPath(arguments.specification));
  if (!reportSpecification(arguments.specification, report)) {
    return base::Failure{L"", tr(L"nothing was converted")};
  }
  undone = {droppedLines(report), report.changes == 0};
  reports.noteSpecification(undone.lines(arguments.specification));
  reports.noteSpecification(diagnosticLines(arguments.specification, report));
  return {};
}

// The folders in which something is written, with those below the one for the converted drawings.
base::Status prepareFolders(const Arguments& arguments, std::vector<PlannedDrawing>& plan) {
  if (arguments.isDryRun) return {};
  if (base::Status made = makeFolder(L"--out", arguments.outputFolder); !made) return made;
  std::map<fs::path, base::Status> folders = {{base::pathFromText(arguments.outputFolder), {}}};
  for (PlannedDrawing& drawing : plan) {
    if (!drawing.refusal.empty()) continue;
    const auto [folder, isNew] = folders.try_emplace(drawing.target.parent_path());
    if (isNew) folder->second = makeFolder(L"", base::pathText(folder->first));
    if (!folder->second) drawing.refusal = folder->second.failure().text();
  }
  for (const auto& [folder, made] : folders) base::removeAbandonedTemporaryFiles(folder);
  if (arguments.logFolder.empty()) return {};
  if (base::Status made = makeFolder(L"--log", arguments.logFolder); !made) return made;
  base::removeAbandonedTemporaryFiles(base::pathFromText(arguments.logFolder));
  return {};
}

// A report that has no place would be known after the last drawing, and what it tells lost. Made and dropped,
// a file leaves nothing.
base::Status checkReportPlaces(const Arguments& arguments) {
  for (const std::wstring& file : arguments.reports) {
    const auto made = base::AtomicFile::create(base::pathFromText(file));
    if (!made) return base::Failure{L"--report " + file, made.failure().reason};
  }
  return {};
}

// The number of drawings that are left out of the plan.
std::size_t leaveOutDone(const Arguments& arguments, std::vector<PlannedDrawing>& plan) {
  if (!arguments.resume || arguments.outputFolder.empty()) return 0;
  const EarlierRun earlier(base::pathFromText(base::fullPath(arguments.specification)));
  return std::erase_if(plan, [&](const PlannedDrawing& drawing) { return earlier.hasDone(drawing); });
}

// Those that bear on what a batch does to drawings.
std::vector<std::wstring> optionsOf(const Arguments& arguments) {
  std::vector<std::wstring> options;
  if (!arguments.outputFolder.empty()) options.push_back(L"--out " + arguments.outputFolder);
  if (arguments.format) {
    constexpr const wchar_t* kNames[] = {L"dwg", L"dxf", L"dwt"};
    options.push_back(L"--format " + std::wstring(kNames[static_cast<std::size_t>(*arguments.format)]));
  }
  options.push_back(L"--block-scope " + std::to_wstring(arguments.blockScope));
  if (arguments.ignoreLocks) options.push_back(L"--ignore-locks");
  if (arguments.resume) options.push_back(L"--resume");
  if (const Shard& part = arguments.shard; part.count > 1)
    options.push_back(L"--shard " + std::to_wstring(part.index) + L"/" + std::to_wstring(part.count));
  return options;
}

std::vector<PlannedDrawing> planAll(const Arguments& arguments, const std::vector<ListedDrawing>& drawings) {
  const fs::path outputFolder = base::pathFromText(arguments.outputFolder);
  if (!arguments.outputFolder.empty()) return planOutputs(drawings, outputFolder, arguments.format);
  std::vector<PlannedDrawing> plan;  // of a dry run
  for (const ListedDrawing& drawing : drawings) plan.push_back(planOutput(drawing, {}, arguments.format));
  return plan;
}

void tell(const DrawingReport& report) {
  for (const std::wstring& message : report.messages) complain(message);
  if (!report.saved.empty()) printLine(report.given + L" -> " + report.saved);
  for (const std::wstring& line : changeLines(report)) printLine(line);
}

bool writeReports(const BatchReport& reports, const std::vector<std::wstring>& files) {
  bool areWritten = true;
  for (const std::wstring& file : files) {
    const base::Status written = reports.write(file);
    if (written) continue;
    complain(L"kivcvt: " + tr(L"the report cannot be written: %1", {shown(written.failure())}));
    areWritten = false;
  }
  return areWritten;
}

int unusable(const base::Status& status) {
  complainOfProgram(status.failure());
  return kUnusable;
}

void askForPictures(std::vector<PlannedDrawing>& plan, std::size_t bytes) {
  for (PlannedDrawing& drawing : plan) drawing.pictureBytes = bytes;
}

// False: the log has not got all that it should, which is told.
bool convertAll(Session& session, const Arguments& arguments, const RuleFiles& rules,
                std::vector<PlannedDrawing>& plan, Summary& summary, BatchReport& reports) {
  BatchLog log(arguments.isDryRun ? std::wstring() : arguments.logFolder);
  bool isLogComplete = true;
  Batch::Listener listener;
  ProgressDisplay progress(plan.size());
  listener.told = [&](const PlannedDrawing&, const DrawingReport& report) {
    progress.hide();
    log.add(report);
    tell(report);
    if (isLogComplete && !log.failure().empty()) {
      complain(L"kivcvt: " + tr(L"the log cannot be written: %1", {log.failure()}));
      isLogComplete = false;
    }
    summary.add(report);
    if (arguments.reports.empty()) return;
    reports.add(report);
    if (!reports.takesPictures()) askForPictures(plan, 0);
  };
  listener.waits = [&](std::size_t done) { progress.show(done); };
  const std::size_t notBegun = Batch(session, arguments, rules, plan).run(listener);
  progress.hide();
  if (base::interruption() != 0) {
    complain(L"kivcvt: " + tr(L"interrupted; drawings that were not begun: %1", {std::to_wstring(notBegun)}));
    reports.noteInterrupted(notBegun);
  } else if (plan.size() > 1) {
    progress.finish();
  }
  return isLogComplete;
}

}  // namespace

int runConvert(const Arguments& arguments) {
  base::Result<std::unique_ptr<Session>> started = Session::start();
  if (!started) {
    complainOfProgram(started.failure());
    return kUnusable;
  }
  Session& session = *started.value();
  setUp(session, arguments);
  if (arguments.isWorker) return Worker(session, arguments).serve(*base::standardRequestChannel());

  const RuleFiles rules(base::pathFromText(base::fullPath(arguments.specification)));
  BatchReport reports(arguments.specification, base::localTimeText(L"%Y-%m-%d %H:%M:%S"), arguments.isDryRun);
  reports.noteOptions(optionsOf(arguments));
  Undone undone;
  if (base::Status usable = checkRules(session, arguments, undone, reports); !usable) return unusable(usable);
  const base::Result<std::vector<ListedDrawing>> drawings = listDrawings(arguments);
  if (!drawings) return unusable(drawings.failure());
  std::vector<PlannedDrawing> plan = partOf(planAll(arguments, drawings.value()), arguments.shard);
  const std::size_t skipped = leaveOutDone(arguments, plan);
  if (base::Status prepared = prepareFolders(arguments, plan); !prepared) return unusable(prepared);
  if (base::Status placed = checkReportPlaces(arguments); !placed) return unusable(placed);

  if (std::ranges::any_of(arguments.reports, isPageName))
    askForPictures(plan, BatchReport::pictureShare(plan.size()));
  reports.noteSkipped(skipped);
  Summary summary(arguments.isDryRun, skipped);
  const bool isLogComplete = convertAll(session, arguments, rules, plan, summary, reports);
  const bool areWritten = writeReports(reports, arguments.reports);
  for (const std::wstring& line : undone.lines(arguments.specification)) complain(line);
  for (const std::wstring& line : summary.lines(base::terminalColumns(stdout))) printLine(line);
  if (base::interruption() != 0) return kInterrupted;
  return std::max(
      {summary.exitStatus(), undone.exitStatus(), isLogComplete && areWritten ? kAllDone : kSomeFailed});
}

}  // namespace kivcli
