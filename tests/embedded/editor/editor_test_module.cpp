// A module as the host loads it: prints its messages and registers one command.

#include "accmd.h"
#include "acutads.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"

#ifdef _WIN32
#define EXPORTED extern "C" __declspec(dllexport)
#else
#define EXPORTED extern "C" __attribute__((visibility("default")))
#endif

namespace {
void hello() { acutPrintf(L"\nhello from %s", L"the module"); }
}  // namespace

EXPORTED int answer() { return 42; }

EXPORTED AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet) {
  acutPrintf(L"<message %d>", static_cast<int>(message));
  switch (message) {
    case AcRx::kInitAppMsg:
      acrxDynamicLinker->unlockApplication(packet);
      acrxRegisterAppMDIAware(packet);
      acedRegCmds->addCommand(L"MODULE_GROUP", L"HELLO", L"HI", ACRX_CMD_MODAL, hello);
      break;
    case AcRx::kUnloadAppMsg:
    case AcRx::kQuitMsg:
      acedRegCmds->removeGroup(L"MODULE_GROUP");
      break;
    default:
      break;
  }
  return AcRx::kRetOK;
}
