#include "host/run_report.h"

#include <optional>
#include <utility>

#include "engine/messages.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

struct LastRun {
  std::optional<RunReport> report;
  int runs = 0;
};

LastRun& storage() {
  static LastRun last;
  return last;
}

}  // namespace

void RunReport::addProblem(const std::wstring& text) {
  if (!containsFolded(problems_, text)) problems_.push_back(text);
  if (log_ != nullptr) log_->addMessage(text);
}

void RunReport::addNote(const std::wstring& kind, const std::wstring& value, RefusalReason reason,
                        int count) {
  for (ReportedNote& note : notes_) {
    const bool isAlike = (note.count == kOfTheDrawing) == (count == kOfTheDrawing);
    if (isAlike && note.reason == reason && note.kind == kind && note.value == value) {
      note.count += count;
      return;
    }
  }
  notes_.push_back({kind, value, reason, count});
}

void RunReport::printNotes() const {
  for (const ReportedNote& note : notes_) {
    printOnCommandLine(L"\n" + refusalLine(note.kind, note.value, note.reason, note.count));
  }
}

void RunReport::finish(const RunOutcome& outcome, std::wstring drawing, std::wstring logFailure) {
  outcome_ = outcome;
  drawing_ = std::move(drawing);
  logFailure_ = std::move(logFailure);
  log_ = nullptr;
}

const RunReport* lastRun() { return storage().report ? &*storage().report : nullptr; }

int runCount() { return storage().runs; }

void keepAsLastRun(RunReport report) {
  storage().report = std::move(report);
  ++storage().runs;
}

}  // namespace kiv
