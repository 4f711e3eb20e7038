#pragma once
// The functions of file_interface.h as this module exports them, without name decoration.

#include "siblings/common/file_interface.h"

#if defined(_WIN32)
#define KIV_EXPORT __declspec(dllexport)
#else
#define KIV_EXPORT __attribute__((visibility("default")))
#endif

extern "C" {
KIV_EXPORT kiv::OpenMulti dll_kiv_openmulti;
KIV_EXPORT kiv::GetDrawingFileVersion dll_kiv_GetAcadFileVer;
}
