#pragma once
// The host's module loader.

#include "AdAChar.h"
#include "rxdefs.h"
#include "rxdict.h"

class AcRxDynamicLinker : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDynamicLinker);
  virtual bool loadModule(const ACHAR* file, bool printit, bool asCmd = false) = 0;
  virtual bool unloadModule(const ACHAR* file, bool asCmd = false) = 0;
  // Lets the host unload the module of this kInitAppMsg packet. False for an unknown packet.
  virtual bool unlockApplication(void* packet) const = 0;
  virtual bool lockApplication(void* packet) const = 0;
  virtual bool isApplicationLocked(const ACHAR* file) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(L"DynamicLinker"))
