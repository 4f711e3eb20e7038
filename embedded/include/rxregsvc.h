#pragma once
// Module services.

#include "AdAChar.h"
#include "rxdefs.h"
#include "rxdict.h"

// Loads a module, found by the rules of acedFindFile; true also when it is loaded already.
bool acrxLoadModule(const ACHAR* file, bool printit, bool asCmd = false);
// False when it is not loaded or has not unlocked itself.
bool acrxUnloadModule(const ACHAR* file, bool asCmd = false);
// `appId` is the packet of kInitAppMsg.
bool acrxUnlockApplication(void* appId);
bool acrxRegisterAppMDIAware(void* appId);
