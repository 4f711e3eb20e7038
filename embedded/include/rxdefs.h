#pragma once
// Messages that the host sends to a module's entry point.

namespace AcRx {

enum AppMsgCode {
  kNullMsg = 0,
  kInitAppMsg = 1,
  kUnloadAppMsg = 2,
  kLoadDwgMsg = 3,
  kUnloadDwgMsg = 4,
  kInvkSubrMsg = 5,
  kCfgMsg = 6,
  kEndMsg = 7,
  kQuitMsg = 8,
  kSaveMsg = 9,
};

enum AppRetCode { kRetOK = 0, kRetError = 3 };

}  // namespace AcRx

// A module exports this function under its plain name. `packet` identifies the module to
// AcRxDynamicLinker::unlockApplication and acrxRegisterAppMDIAware.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);
