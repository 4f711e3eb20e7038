// Commands that wait for the user, for the test of the window: PICKERASE erases the entity that is picked,
// WAITCANCEL reads events until it is cancelled and says how, ASKCOLOR asks for a colour but by layer and by
// block and says the answer.

#include "accmd.h"
#include "acdb.h"
#include "acedads.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

namespace {

constexpr int kKeyEvent = 2, kCancelKey = 3;

void pickErase() {
  ads_name entity;
  ads_point point;
  const int outcome = acedEntSel(L"\n図形を指示:", entity, point);
  acutPrintf(L"\npick %d", outcome);
  if (outcome == RTNORM) acdbEntDel(entity);
}

void waitCancel() {
  while (true) {
    int type = 0;
    resbuf event{};
    if (acedGrRead(15, &type, &event) != RTNORM) return;
    if (type == kKeyEvent && event.resval.rint == kCancelKey) break;
  }
  acutPrintf(L"\ncancelled");
}

void askColor() {
  resbuf* const call = acutBuildList(RTSTR, L"acad_colordlg", RTSHORT, 3, RTNIL, RTNONE);
  resbuf* answer = nullptr;
  const int outcome = acedInvoke(call, &answer);
  acutRelRb(call);
  if (outcome != RTNORM || answer == nullptr) return;
  acutPrintf(answer->restype == RTSHORT ? L"\ncolour %d" : L"\nno colour", answer->resval.rint);
  acutRelRb(answer);
}

}  // namespace

EXPORTED AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
  if (message == AcRx::kInitAppMsg) {
    acrxDynamicLinker->unlockApplication(packet);
    acrxRegisterAppMDIAware(packet);
    acedRegCmds->addCommand(L"WINDOW_TEST", L"PICKERASE", L"PE", ACRX_CMD_MODAL, pickErase);
    acedRegCmds->addCommand(L"WINDOW_TEST", L"WAITCANCEL", L"WC", ACRX_CMD_MODAL, waitCancel);
    acedRegCmds->addCommand(L"WINDOW_TEST", L"ASKCOLOR", L"AC", ACRX_CMD_MODAL, askColor);
  }
  if (message == AcRx::kQuitMsg || message == AcRx::kUnloadAppMsg) acedRegCmds->removeGroup(L"WINDOW_TEST");
  return AcRx::kRetOK;
}
