#pragma once
// Keys and the right button in trees, lists and grids.

#include "platform/dialog.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

// Makes the keys of a tree, list or grid come to the dialog before the control uses them, and its right
// button open a menu at the row under the pointer.
void watchControl(HWND control);

// On the screen, below the row that is chosen in a tree, list or grid.
POINT placeUnderChosenRow(HWND control);

// What the window manager does with Enter, Escape and Tab in a dialog, for a control that takes all keys.
void useAsDialogKey(HWND dialog, Key key);

}  // namespace kiv::win32
