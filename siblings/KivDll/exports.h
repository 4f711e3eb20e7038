#pragma once
// The functions of interface.h as this module exports them, without name decoration.

#include "siblings/KivDll/interface.h"

#if defined(_WIN32)
#define KIV_EXPORT __declspec(dllexport)
#else
#define KIV_EXPORT __attribute__((visibility("default")))
#endif

extern "C" {
KIV_EXPORT kiv::GetCommonSetting dll_kiv_getcfgCmn;
KIV_EXPORT kiv::SetCommonSetting dll_kiv_setcfgCmn;
KIV_EXPORT kiv::PickEntity dll_kiv_entsel;
}
