#include "platform/win32/system.h"

#include <cstdio>

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

bool isWithin(HWND ancestor, HWND window) {
  return ancestor && window && (ancestor == window || IsChild(ancestor, window));
}

void reportOnStderr(std::wstring_view message) {
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, message.data(), static_cast<int>(message.size()), nullptr,
                                        0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(bytes), '\0');
  WideCharToMultiByte(CP_UTF8, 0, message.data(), static_cast<int>(message.size()), narrow.data(), bytes,
                      nullptr, nullptr);
  std::fprintf(stderr, "kiv: %s\n", narrow.c_str());
}

}  // namespace kiv::win32
