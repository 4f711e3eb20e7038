#pragma once
// The messages that a dialog's window gets.

#include "platform/win32/system.h"

namespace kiv::win32 {

inline constexpr UINT kRunCommand = WM_APP + 1;  // first parameter: the command
inline constexpr UINT kGoNow = WM_APP + 2;       // to a window whose dialog has gone already

inline constexpr UINT_PTR kActTimer = 1;     // of whoever acts in a modal dialog (acting)
inline constexpr UINT_PTR kDialogTimer = 2;  // of Dialog::onTimer()

INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM first, LPARAM second);

}  // namespace kiv::win32
