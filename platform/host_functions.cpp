#include "platform/host_functions.h"

#include "acedads.h"
#include "platform/host_output.h"

namespace kiv {

std::optional<int> chooseHostColor(int present) {
  resbuf* const call = acutBuildList(RTSTR, L"acad_colordlg", RTSHORT, present, RTNIL, RTNONE);
  resbuf* result = nullptr;
  const int outcome = acedInvoke(call, &result);
  acutRelRb(call);
  if (outcome != RTNORM) printError(L"このﾎｽﾄでは色ﾀﾞｲｱﾛｸﾞを使用できません.");
  const bool isChosen = outcome == RTNORM && result != nullptr && result->restype == RTSHORT;
  const std::optional<int> chosen = isChosen ? std::optional<int>(result->resval.rint) : std::nullopt;
  if (result != nullptr) acutRelRb(result);
  return chosen;
}

}  // namespace kiv
