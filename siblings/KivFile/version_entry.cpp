#include <exception>

#include "base/files.h"
#include "siblings/KivFile/drawing_probe.h"
#include "siblings/KivFile/exports.h"

int dll_kiv_GetAcadFileVer(const wchar_t* path) {
  if (path == nullptr) return kiv::kNoDrawing;
  try {
    return kiv::probeDrawing(base::pathFromText(path));
  } catch (const std::exception&) {
    return kiv::kNoDrawing;
  }
}
