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

KivRunEnd endOf(RunEnd end) {
  switch (end) {
    case RunEnd::kConverted:
      return kKivConverted;
    case RunEnd::kNoSpecification:
      return kKivNoSpecification;
    case RunEnd::kSpecificationUnreadable:
      return kKivSpecificationUnreadable;
    case RunEnd::kEmptyDrawing:
      return kKivEmptyDrawing;
  }
  return kKivNeverRun;
}

KivNoteReason reasonOf(RefusalReason refusal) {
  switch (refusal) {
    case RefusalReason::kNoSuchName:
      return kKivNoSuchName;
    case RefusalReason::kNotInThisVersion:
      return kKivNotInThisVersion;
    case RefusalReason::kBadValue:
      return kKivBadValue;
    case RefusalReason::kNotForObject:
      return kKivNotForObject;
    case RefusalReason::kNoSuchFile:
      return kKivNoSuchFile;
    case RefusalReason::kOther:
      break;
  }
  return kKivRefused;
}

KivRefuser refuserOf(Refuser refuser) {
  switch (refuser) {
    case Refuser::kObject:
      return kKivObjects;
    case Refuser::kLayer:
      return kKivLayers;
    case Refuser::kDrawing:
      break;
  }
  return kKivDrawing;
}

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
  // No word of a failure to the user: the log never stops or disturbs a conversion.
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
    last.notes.push_back(
        {note.kind.c_str(), note.value.c_str(), reasonOf(note.reason), note.count, refuserOf(note.by)});
  }
  last.record = {runs,
                 endOf(last.report->outcome().end),
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
