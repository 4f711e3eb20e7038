#include "cli/convert/worker.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/files.h"
#include "base/memory.h"
#include "base/paths.h"
#include "base/temporary_files.h"
#include "cli/commands.h"
#include "cli/convert/file_stamp.h"
#include "cli/convert/worker_lines.h"
#include "cli/language/language.h"
#include "cli/reports/batch_report.h"

namespace kivcli {
namespace {

namespace fs = std::filesystem;

// What is saved is whole, but nobody may take it for the drawing that is there now: it must not look newer.
void tellReplaced(DrawingReport& report, const FileStamp& before, const FileStamp& after) {
  std::error_code error;
  fs::last_write_time(base::pathFromText(report.saved), std::min(before.modified, after.modified), error);
  report.outcome = Outcome::kWithProblems;
  report.messages.push_back(
      report.given + L": " +
      tr(L"the drawing was replaced while it was converted; what is saved is from the one before"));
}

}  // namespace

Worker::Worker(Session& session, const Arguments& arguments)
    : ownLog_(arguments.logFolder.empty() ? std::wstring()
                                          : base::pathText(base::temporaryName(
                                                base::pathFromText(base::fullPath(arguments.logFolder))))),
      conversion_(session, arguments, ownLog_, !std::ranges::all_of(arguments.reports, isPageName)) {}

DrawingReport Worker::convert(const PlannedDrawing& drawing) {
  const fs::path source = base::pathFromText(drawing.given);
  const FileStamp before = stampOf(source);
  DrawingReport report = conversion_.run(drawing);
  if (!report.saved.empty()) {
    if (const FileStamp after = stampOf(source); after != before) tellReplaced(report, before, after);
  }
  if (!ownLog_.empty()) takeLogEntries(report);
  return report;
}

int Worker::serve(base::RequestChannel& channel) {
  base::keepFreedMemory();
  while (const auto request = channel.receive()) {
    const auto drawing = plannedOf(*request);
    if (!drawing || !channel.answer(lineOf(convert(*drawing)))) return kUnusable;
  }
  return kAllDone;
}

void Worker::takeLogEntries(DrawingReport& report) const {
  const fs::path file = base::pathFromText(ownLog_);
  std::error_code error;
  if (!fs::exists(file, error)) return;
  base::Result<std::string> entries = base::readFile(file);
  if (!entries) {
    report.logFailure = entries.failure().text();
  } else {
    report.logEntries = std::move(entries.value());
  }
  fs::remove(file, error);
}

}  // namespace kivcli
