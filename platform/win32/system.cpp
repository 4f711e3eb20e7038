#include "platform/win32/system.h"

namespace kiv::win32 {

HINSTANCE moduleInstance() {
  static const HINSTANCE instance = [] {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&moduleInstance), &module);
    return module;
  }();
  return instance;
}

std::wstring windowText(HWND window) {
  const auto length = static_cast<std::size_t>(GetWindowTextLengthW(window));
  std::wstring text(length + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(length) + 1)));
  return text;
}

bool isOfClass(HWND window, const wchar_t* windowClass) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  return lstrcmpiW(name, windowClass) == 0;
}

RECT usablePartOfMonitor(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
  return monitor.rcWork;
}

bool isWithin(HWND ancestor, HWND window) {
  return ancestor && window && (ancestor == window || IsChild(ancestor, window));
}

}  // namespace kiv::win32
