#pragma once
// The host's registry of services by name.

#include "AdAChar.h"
#include "rxclass.h"

class AcRxDictionary : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcRxDictionary);
  // NULL when there is no entry of that name. The dictionary owns its entries.
  virtual AcRxObject* at(const ACHAR* key) const = 0;
};

// Holds "DynamicLinker" (AcRxDynamicLinker), "ACAD_REGISTERED_COMMANDS" (AcEdCommandStack) and "AcEditor"
// (AcEditor).
AcRxDictionary* acrxSysRegistry();
