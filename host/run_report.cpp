#include "host/run_report.h"

#include <optional>
#include <utility>

#include "dbapserv.h"
#include "dbmain.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

std::wstring workingDrawing() {
  const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  const ACHAR* name = nullptr;
  if (database == nullptr || database->getFilename(name) != Acad::eOk || name == nullptr) return {};
  return name;
}

// The automation entry's numbers are the engine's, in its order.
static_assert(static_cast<int>(RunEnd::kConverted) + 1 == kKivConverted &&
              static_cast<int>(RunEnd::kEmptyDrawing) + 1 == kKivEmptyDrawing);
static_assert(static_cast<int>(RefusalReason::kOther) == kKivRefused &&
              static_cast<int>(RefusalReason::kNoSuchFile) == kKivNoSuchFile &&
              kRefusalCount == kKivNoSuchFile + 1);
static_assert(static_cast<int>(Refuser::kObject) == kKivObjects &&
              static_cast<int>(Refuser::kDrawing) == kKivDrawing);

struct LastRun {
  std::optional<RunReport> report;
  // What the record points to besides the texts of the report.
  std::vector<const wchar_t*> problems;
  std::vector<KivNote> notes;
  KivRunReport record{0, kKivNeverRun, L"", L"", L"", 0, nullptr, 0, nullptr};
};

LastRun& storage() {
  static LastRun last;
  return last;
}

}  // namespace

RunReport::RunReport() : drawing_(workingDrawing()), log_(drawing_) {}

void RunReport::addNote(const RefusalNote& refusal) {
  const auto [known, isNew] =
      noteOf_.try_emplace({refusal.kind, refusal.value, refusal.reason, refusal.by}, notes_.size());
  if (isNew)
    notes_.push_back(refusal);
  else
    notes_[known->second].count += refusal.count;
}

void RunReport::endOfConversion() {
  for (const RefusalNote& note : notes_) printOnCommandLine(L"\n" + refusalLine(note));
}

void RunReport::finish(const RunOutcome& outcome) {
  outcome_ = outcome;
  if (outcome.end == RunEnd::kEmptyDrawing) return;
  // The command line says nothing of a failure: the log never stops or disturbs a conversion. The report has
  // it.
  if (base::Status logged = log_.writeEntry(); !logged) logFailure_ = logged.failure().text();
}

void keepAsLastRun(RunReport report) {
  LastRun& last = storage();
  const int runs = last.record.runs + 1;
  last.report = std::move(report);
  last.problems.clear();
  last.notes.clear();
  for (const std::wstring& problem : last.report->problems()) last.problems.push_back(problem.c_str());
  for (const RefusalNote& note : last.report->notes()) {
    last.notes.push_back({note.kind.c_str(), note.value.c_str(), static_cast<int>(note.reason), note.count,
                          static_cast<int>(note.by)});
  }
  last.record = {runs,
                 static_cast<int>(last.report->outcome().end) + 1,
                 last.report->drawing().c_str(),
                 last.report->outcome().savedPath.c_str(),
                 last.report->logFailure().c_str(),
                 static_cast<int>(last.problems.size()),
                 last.problems.data(),
                 static_cast<int>(last.notes.size()),
                 last.notes.data()};
}

const KivRunReport& lastRun() { return storage().record; }

}  // namespace kiv
