// KIV_TOACAD2: one conversion run with what the context holds, its log entry and its report.

#include "acdocman.h"
#include "engine/conversion_run.h"
#include "host/commands.h"
#include "host/conversion_context.h"
#include "host/run_report.h"
#include "platform/guard.h"

namespace kiv {
namespace {

// The last drawing of a batch brings the user back to where it began.
void returnFromBatch() {
  const ConversionContext& context = conversionContext();
  if (context.batchRemaining > 0 || context.batchStartDocument == nullptr) return;
  acDocManagerPtr()->sendStringToExecute(context.batchStartDocument,
                                         L"\x03"
                                         L"KIV_TOACAD\n",
                                         true, false, true);
}

void convertCurrentDrawing() {
  ConversionContext& context = conversionContext();
  ConversionLog log;
  log.startEntry();
  // Asked before the run, which may close the drawing.
  const std::wstring drawing = workingDrawing();
  RunReport report(&log);
  const RunParameters parameters{context.contextPaths[kSpecificationPath],
                                 context.contextPaths[kOutputFolder], context.saveFormat,
                                 [&] { report.printNotes(); }};
  const RunOutcome outcome = runConversion(parameters, report);
  if (outcome.isClosed) --context.batchRemaining;
  base::Status logged;
  if (outcome.end != RunEnd::kEmptyDrawing) logged = log.writeEntry();
  log.clearEntry();
  // No word of it to the user: the log never stops or disturbs a conversion.
  report.finish(outcome, drawing, logged.ok() ? std::wstring() : logged.failure().text());
  keepAsLastRun(std::move(report));
  // The host may suspend the command that activates another document: nothing is left to do after it.
  if (outcome.isClosed) returnFromBatch();
}

}  // namespace

void conversionCommand() { guarded(convertCurrentDrawing); }

}  // namespace kiv
