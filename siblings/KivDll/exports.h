#pragma once
// The functions of interface.h as this module exports them, without name decoration.

#include "siblings/KivDll/interface.h"
#include "siblings/common/export.h"

extern "C" {
KIV_EXPORT kiv::GetCommonSetting dll_kiv_getcfgCmn;
KIV_EXPORT kiv::SetCommonSetting dll_kiv_setcfgCmn;
KIV_EXPORT kiv::PickEntity dll_kiv_entsel;
}
