#pragma once
// What every file of this backend asks of the system.

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/dialog_window.h"

namespace kiv::win32 {

// The library or program that contains this code; its resources are the module's.
HINSTANCE moduleInstance();

std::wstring windowText(HWND window);

bool isOfClass(HWND window, const wchar_t* windowClass);

// Window procedures take texts that end with a null.
inline std::wstring terminated(std::wstring_view text) { return std::wstring(text); }

inline RECT systemRect(const Rect& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

// What the monitor that shows the window has besides bars of the system; empty where there is none.
RECT usablePartOfMonitor(HWND window);

// Whether `window` is `ancestor` or stands in it.
bool isWithin(HWND ancestor, HWND window);

}  // namespace kiv::win32
