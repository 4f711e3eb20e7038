// Loading of arrow blocks.

#include <system_error>

#include "acdbads.h"
#include "acedCmdNF.h"
#include "acutads.h"
#include "adscodes.h"
#include "base/files.h"
#include "engine/host_arrows.h"
#include "engine/host_variables.h"
#include "engine/messages.h"
#include "engine/resource_stages.h"
#include "platform/text.h"
#include "spec/arrow_catalogue.h"

namespace kiv {
namespace {

// The host makes an arrow's block when a variable names it; the drawing's own arrow comes back at once.
void makeBuiltIn(const std::wstring& name, ProblemSink& problems) {
  const auto current = textVariable(L"DIMBLK");
  if (!current) return;
  if (!setTextVariable(L"DIMBLK", hostArrowName(builtInArrow(name)))) problems.addProblem(arrowProblem(name));
  setTextVariable(L"DIMBLK", *current);
}

bool hasBlock(const std::wstring& name) {
  resbuf* record = acdbTblSearch(L"BLOCK", name.c_str(), 0);
  if (record == nullptr) return false;
  acutRelRb(record);
  return true;
}

bool insertAtOrigin(const std::wstring& insertName) {
  const int result = acedCommandS(RTSTR, L".-INSERT", RTSTR, insertName.c_str(), RTSTR, L"S", RTREAL, 1.0,
                                  RTSTR, L"R", RTREAL, 0.0, RTSTR, L"0,0", RTNONE);
  acedCommandS(RTNONE);
  return result == RTNORM;
}

void loadFile(const std::wstring& path, ProblemSink& problems) {
  std::error_code error;
  const std::filesystem::path file = base::pathFromText(path);
  if (!std::filesystem::exists(file, error)) return;
  const std::wstring block = base::pathText(file.stem());
  const std::wstring insertName = hasBlock(block) ? block + L"=" + path : path;
  ads_name before;
  const bool hadEntities = acdbEntLast(before) == RTNORM;
  if (!insertAtOrigin(insertName)) {
    problems.addProblem(arrowProblem(block));
    return;
  }
  // Only the definition is wanted.
  ads_name after;
  if (acdbEntLast(after) == RTNORM && (!hadEntities || !ads_name_equal(before, after))) acdbEntDel(after);
}

}  // namespace

void loadArrows(RunState& run) {
  for (const std::wstring& entry : run.list(kArrowList)) {
    if (entry.empty()) continue;
    if (isBuiltInArrow(entry)) {
      makeBuiltIn(entry, run.problems);
    } else {
      loadFile(entry, run.problems);
    }
  }
}

}  // namespace kiv
