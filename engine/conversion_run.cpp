#include "engine/conversion_run.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "acedCmdNF.h"
#include "adscodes.h"
#include "base/files.h"
#include "dbapserv.h"
#include "engine/host_access.h"
#include "engine/layers.h"
#include "engine/stages.h"
#include "platform/host_output.h"
#include "platform/host_variables.h"
#include "platform/settings.h"
#include "spec/cvt_reader.h"

namespace kiv {
namespace {

// Work that is done when a scope is left, in whatever way.
template <class Work>
class ScopeExit {
 public:
  explicit ScopeExit(Work work) : work_(std::move(work)) {}
  ScopeExit(const ScopeExit&) = delete;
  ScopeExit& operator=(const ScopeExit&) = delete;
  ~ScopeExit() {
    try {
      work_();
    } catch (...) {  // the error that leaves the scope is the one to tell
    }
  }

 private:
  Work work_;
};

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
  const int scope = std::clamp(readCommonInteger(kBlockScopeKey, 0), 0, 2);
  LockedLayers lockedLayers;
  const ScopeExit lockAgain([&] { lockedLayers.lockAgain(); });
  if (readCommonInteger(kIgnoreLocksKey, 0) == 1) lockedLayers.unlockAll(run.database);
  runEntityPasses(run, static_cast<BlockScope>(scope));
}

bool isDrawingEmpty() { return SelectionSet(BufferChain()).size() < 1; }

bool exists(const std::wstring& path) {
  std::error_code error;
  return std::filesystem::exists(base::pathFromText(path), error);
}

void addTokens(base::SaveFormat format, const std::wstring& target, BufferChain& tokens) {
  tokens.text(RTSTR, L"SAVEAS");
  switch (format) {
    case base::SaveFormat::kDwg:
      tokens.text(RTSTR, L"");
      break;
    case base::SaveFormat::kDxf:
      tokens.text(RTSTR, L"DXF").text(RTSTR, L"V").text(RTSTR, L"").text(RTSTR, L"").text(RTSTR, L"DXF");
      break;
    case base::SaveFormat::kDwt:
      tokens.text(RTSTR, L"T");
  }
  tokens.text(RTSTR, target);
}

bool save(base::SaveFormat format, const std::wstring& target) {
  BufferChain tokens;
  addTokens(format, target, tokens);
  if (exists(target)) tokens.text(RTSTR, L"Y");
  if (!tokens.isWhole()) return false;
  const int result = acedCmdS(tokens.get());
  acedCommandS(RTNONE);
  return result == RTNORM && exists(target);
}

void closeDrawing() {
  if (integerVariable(L"DBMOD").value_or(0) > 0) {
    acedCommandS(RTSTR, L"CLOSE", RTSTR, L"Y", RTNONE);
  } else {
    acedCommandS(RTSTR, L"CLOSE", RTNONE);
  }
}

// A failed save is a problem; the drawing is closed all the same.
RunOutcome saveAndClose(const RunParameters& parameters, ProblemSink& problems) {
  const std::wstring name = textVariable(L"DWGNAME").value_or(L"");
  const std::wstring target = parameters.outputFolder + base::savedName(name, parameters.saveFormat);
  const bool saved = save(parameters.saveFormat, target);
  if (!saved) problems.addProblem(saveProblem(target));
  closeDrawing();
  return {RunEnd::kConverted, saved ? target : std::wstring(), true};
}

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
  RunState run{*database, problems, work, file.parent_path(), parameters.observer};
  convertDrawing(run);
  problems.endOfConversion();
  if (parameters.outputFolder.empty()) return {RunEnd::kConverted};
  return saveAndClose(parameters, problems);
}

}  // namespace kiv
