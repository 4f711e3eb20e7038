#include <windows.h>

#include <shellscalingapi.h>

#include "platform/screen_scale.h"

namespace kiv {
namespace {

// 0: this system has no resolution per monitor.
int monitorResolution(HMONITOR monitor) {
  using Function = HRESULT(WINAPI*)(HMONITOR, MONITOR_DPI_TYPE, UINT*, UINT*);
  const HMODULE library = LoadLibraryExW(L"shcore.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (library == nullptr) return 0;
  UINT x = 0, y = 0;
  const auto function =
      reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, "GetDpiForMonitor")));
  if (function == nullptr || FAILED(function(monitor, MDT_EFFECTIVE_DPI, &x, &y))) x = 0;
  FreeLibrary(library);
  return static_cast<int>(x);
}

int screenResolution() {
  const HDC screen = GetDC(nullptr);
  if (screen == nullptr) return kReferenceDpi;
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace

int monitorDpi(void* window) {
  const HMONITOR monitor = MonitorFromWindow(static_cast<HWND>(window), MONITOR_DEFAULTTOPRIMARY);
  const int dpi = monitor != nullptr ? monitorResolution(monitor) : 0;
  return dpi > 0 ? dpi : screenResolution();
}

}  // namespace kiv
