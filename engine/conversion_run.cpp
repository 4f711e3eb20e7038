#include "engine/conversion_run.h"

#include <algorithm>

#include "acedCmdNF.h"
#include "adscodes.h"
#include "base/files.h"
#include "dbapserv.h"
#include "engine/entity_passes.h"
#include "engine/layer_stages.h"
#include "engine/messages.h"
#include "engine/resource_stages.h"
#include "engine/save_stage.h"
#include "engine/scope_exit.h"
#include "engine/selection_set.h"
#include "platform/host_output.h"
#include "platform/progress_meter.h"
#include "platform/settings.h"
#include "spec/cvt_run_reader.h"

namespace kiv {
namespace {

void convertDrawing(RunState& run) {
  const ScopeExit restoreStatusBar([] { endMeter(); });
  acedCommandS(RTSTR, L"UNDO", RTSTR, L"BE", RTNONE);
  const ScopeExit closeUndoGroup([] {
    acedCommandS(RTSTR, L".REGEN", RTNONE);
    acedCommandS(RTNONE);
    acedCommandS(RTSTR, L"UNDO", RTSTR, L"E", RTNONE);
  });
  loadArrows(run);
  setDimensionVariables(run);
  loadLinetypes(run);
  setUpTextStyles(run);
  createLayers(run);
  applyLayerSettings(run);
  const int scope = std::clamp(readCommonInteger(L"KivBlock", 0), 0, 2);
  LockedLayers lockedLayers;
  const ScopeExit lockAgain([&] { lockedLayers.lockAgain(); });
  if (readCommonInteger(L"MorluxIgnoreLocks", 0) == 1) lockedLayers.unlockAll(run.database);
  runEntityPasses(run, static_cast<BlockScope>(scope));
}

bool isDrawingEmpty() { return SelectionSet(BufferChain()).size() < 1; }

RunOutcome refuse(ProblemSink& problems, RunEnd end, const std::wstring& printed,
                  const std::wstring& problem) {
  printError(printed);
  problems.addProblem(problem);
  return {end};
}

}  // namespace

RunOutcome runConversion(const RunParameters& parameters, ProblemSink& problems) {
  if (parameters.specification.empty()) {
    return refuse(problems, RunEnd::kNoSpecification, L"このｺﾏﾝﾄﾞは単独では実行できません.", kAloneProblem);
  }
  const std::filesystem::path file = base::pathFromText(parameters.specification);
  WorkLists work;
  if (!readWorkLists(file, work)) {
    const std::wstring problem = unreadableProblem(parameters.specification);
    return refuse(problems, RunEnd::kSpecificationUnreadable, problem + L".", problem);
  }
  AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
  if (database == nullptr || isDrawingEmpty()) return {RunEnd::kEmptyDrawing};
  RunState run{*database, problems, work, file.parent_path()};
  convertDrawing(run);
  if (parameters.converted) parameters.converted();
  if (parameters.outputFolder.empty()) return {RunEnd::kConverted};
  return saveAndClose(parameters, problems);
}

}  // namespace kiv
