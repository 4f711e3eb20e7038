#pragma once
// What the last conversion run came to, for a program that drives the host.

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "engine/run_interfaces.h"
#include "host/conversion_log.h"

namespace kiv {

// Keeps what the run tells, and hands the log its lines.
class RunReport : public ProblemSink {
 public:
  explicit RunReport(ConversionLog* log) : log_(log) {}

  void addToLog(const std::wstring& text) override;
  void addToReport(const std::wstring& text) override { problems_.add(text); }
  void addNote(const RefusalNote& refusal) override;

  // One line of the host's command line for each note.
  void printNotes() const;

  void finish(const RunOutcome& outcome, std::wstring drawing, std::wstring logFailure);

  const RunOutcome& outcome() const { return outcome_; }
  const std::wstring& drawing() const { return drawing_; }
  const std::wstring& logFailure() const { return logFailure_; }  // empty: none
  const std::vector<std::wstring>& problems() const { return problems_.texts(); }
  const std::vector<RefusalNote>& notes() const { return notes_; }

 private:
  ConversionLog* log_;  // null after finish()
  RunOutcome outcome_;
  std::wstring drawing_, logFailure_;
  DistinctTexts problems_;
  std::vector<RefusalNote> notes_;
  // A rule may be refused for another name by each of thousands of layers.
  std::map<std::tuple<std::wstring, std::wstring, RefusalReason, Refuser>, std::size_t> noteOf_;
};

// Of the last run; null before the first. `runs` counts them.
const RunReport* lastRun();
int runCount();
void keepAsLastRun(RunReport report);

}  // namespace kiv
