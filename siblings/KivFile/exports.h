#pragma once
// The functions of file_interface.h as this module exports them, without name decoration.

#include "siblings/common/export.h"
#include "siblings/common/file_interface.h"

extern "C" {
KIV_EXPORT kiv::OpenMulti dll_kiv_openmulti;
KIV_EXPORT kiv::GetDrawingFileVersion dll_kiv_GetAcadFileVer;
}
