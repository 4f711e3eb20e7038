#pragma once
// A combo box that shows each lineweight as a line of its width before its text. It is one of the styles
// CBS_OWNERDRAWFIXED and CBS_HASSTRINGS; an entry that is no lineweight has no line.

#include "platform/win32/system.h"

namespace kiv::win32 {

bool isLineweightList(HWND control);

// Makes the entries high enough; the system asks for that before a dialog can answer.
void prepareLineweightList(HWND comboBox);

void drawLineweightEntry(const DRAWITEMSTRUCT& item);

}  // namespace kiv::win32
