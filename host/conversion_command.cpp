// KIV_TOACAD2: one conversion run with what the context holds, its log entry and its report.

#include <utility>

#include "engine/conversion_run.h"
#include "host/batch_turns.h"
#include "host/module.h"
#include "host/run_report.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

// The file that was saved; empty: none.
std::wstring convertCurrentDrawing() {
  ConversionContext& context = conversionContext();
  RunReport report;
  const RunOutcome outcome = runConversion(
      {context.contextPaths[kSpecificationPath], context.contextPaths[kOutputFolder], context.saveFormat},
      report);
  if (outcome.isClosed) --context.batchRemaining;
  report.finish(outcome);
  keepAsLastRun(std::move(report));
  return outcome.savedPath;
}

// The drawing counts as failed unless it was saved.
void convertDrawingOfBatch() {
  BatchFile* const file = takeTurn();
  if (file == nullptr) return;
  const int version = std::exchange(file->version, 0);
  if (!convertCurrentDrawing().empty()) file->version = version;
}

}  // namespace

void conversionCommand() {
  if (!isBatchUnderWay()) return guarded([] { convertCurrentDrawing(); });
  guarded(convertDrawingOfBatch);
  guarded(endTurn);
}

}  // namespace kiv
