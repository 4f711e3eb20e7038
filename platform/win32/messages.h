#pragma once
// The messages that a dialog's window gets.

#include "platform/dialog.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

inline constexpr UINT kRunCommand = WM_APP + 1;  // first parameter: the command
inline constexpr UINT kGoNow = WM_APP + 2;       // to a window whose dialog has gone already

INT_PTR CALLBACK dialogProcedure(HWND window, UINT message, WPARAM first, LPARAM second);

// Makes the keys of a tree, list or grid come to the dialog before the control uses them, and its right
// button open a menu at the row under the pointer.
void watchControl(HWND control);

// What the window manager does with Enter, Escape and Tab in a dialog, for a control that takes all keys.
void useAsDialogKey(HWND dialog, Key key);

}  // namespace kiv::win32
