// KIV_TOACAD2: one conversion run with what the context holds, its log entry and its report.

#include "engine/conversion_run.h"
#include "host/batch.h"
#include "host/module.h"
#include "host/run_report.h"
#include "platform/host_output.h"

namespace kiv {
namespace {

void convertCurrentDrawing() {
  const ConversionContext& context = conversionContext();
  RunReport report;
  const RunOutcome outcome = runConversion(
      {context.contextPaths[kSpecificationPath], context.contextPaths[kOutputFolder], context.saveFormat},
      report);
  report.finish(outcome);
  keepAsLastRun(std::move(report));
  if (outcome.isClosed) endBatchStep();
}

}  // namespace

void conversionCommand() { guarded(convertCurrentDrawing); }

}  // namespace kiv
