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

void RunReport::addToLog(const std::wstring& text) {
  if (log_ != nullptr) log_->addMessage(text);
}

void RunReport::addNote(const RefusalNote& refusal) {
  const auto [known, isNew] =
      noteOf_.try_emplace({refusal.kind, refusal.value, refusal.reason, refusal.by}, notes_.size());
  if (isNew)
    notes_.push_back(refusal);
  else
    notes_[known->second].count += refusal.count;
}

void RunReport::printNotes() const {
  for (const RefusalNote& note : notes_) printOnCommandLine(L"\n" + refusalLine(note));
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
