// KIV_TOACAD2: one conversion run with what the context holds, its log entry and its report.

#include <utility>

#include "engine/conversion_run.h"
#include "engine/problems.h"
#include "host/batch_turns.h"
#include "host/module.h"
#include "host/run_report.h"
#include "platform/host_output.h"
#include "platform/host_variables.h"

namespace kiv {
namespace {

base::SaveFormat formatOfDrawing(const ConversionContext& context) {
  const base::SaveFormat chosen = context.saveFormat;
  const base::SaveFormat format =
      savedFormat(chosen, textVariable(L"DWGPREFIX").value_or(L"") + textVariable(L"DWGNAME").value_or(L""));
  if (format != chosen && !context.contextPaths[kOutputFolder].empty())
    printOnCommandLine(L"\nこのﾎｽﾄは図面の形式を変えないため, " +
                       std::wstring(base::savedName(L"", format).substr(1)) + L"形式で保存します.");
  return format;
}

// The log has an entry of a run that an error ended, too.
RunOutcome run(const ConversionContext& context, RunReport& report) {
  try {
    return runConversion({context.contextPaths[kSpecificationPath], context.contextPaths[kOutputFolder],
                          formatOfDrawing(context), context.observer ? &*context.observer : nullptr},
                         report);
  } catch (...) {
    report.addProblem(brokenOffProblem(report.drawing()));
    report.finish({});
    throw;
  }
}

// The file that was saved; empty: none.
std::wstring convertCurrentDrawing() {
  ConversionContext& context = conversionContext();
  RunReport report;
  const RunOutcome outcome = run(context, report);
  if (outcome.isClosed) --context.batchRemaining;
  report.finish(outcome);
  keepAsLastRun(std::move(report));
  return outcome.savedPath;
}

void convertDrawingOfBatch() {
  BatchFile* const file = takeTurn();
  if (file != nullptr && !convertCurrentDrawing().empty()) file->state = BatchState::kConverted;
}

}  // namespace

void conversionCommand() {
  if (!isScriptsTurn()) return guarded([] { convertCurrentDrawing(); });
  guarded(convertDrawingOfBatch);
  guarded(finishTurn);
}

}  // namespace kiv
