#pragma once
// What the last conversion run came to, for a program that drives the host.

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "engine/conversion_run.h"
#include "host/automation.h"
#include "host/conversion_log.h"

namespace kiv {

// Keeps what the run tells, and hands the log its lines.
class RunReport : public ProblemSink {
 public:
  // To be made before the run, which may close the drawing that it is about.
  RunReport();

  void addToLog(const std::wstring& text) override { log_.addMessage(text); }
  void addToReport(const std::wstring& text) override { problems_.add(text); }
  void addNote(const RefusalNote& refusal) override;
  // One line of the host's command line for each note.
  void endOfConversion() override;

  // Writes the entry of the log, unless the drawing was empty.
  void finish(const RunOutcome& outcome);

  const RunOutcome& outcome() const { return outcome_; }
  const std::wstring& drawing() const { return drawing_; }        // full name; empty: it was never saved
  const std::wstring& logFailure() const { return logFailure_; }  // empty: none
  const std::vector<std::wstring>& problems() const { return problems_.texts(); }
  const std::vector<RefusalNote>& notes() const { return notes_; }

 private:
  std::wstring drawing_, logFailure_;
  ConversionLog log_;
  RunOutcome outcome_;
  DistinctTexts problems_;
  std::vector<RefusalNote> notes_;
  // A rule may be refused for another name by each of thousands of layers.
  std::map<std::tuple<std::wstring, std::wstring, RefusalReason, Refuser>, std::size_t> noteOf_;
};

void keepAsLastRun(RunReport report);
// As the automation entry hands it out; what it points to stays until the next run is kept.
const KivRunReport& lastRun();

}  // namespace kiv
