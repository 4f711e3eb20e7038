#pragma once
// The table of the colour dialog as a control: a click or the arrow keys choose a colour.

#include <windows.h>

namespace cadhost {

class ColorGrid {
 public:
  static constexpr wchar_t kClass[] = L"CadhostColors";

  // Told to the dialog by WM_COMMAND: another colour, and a double click on one.
  static constexpr WORD kChosen = 1, kConfirmed = 2;
  // The chosen colour, 0 none; the message that chooses one tells nothing.
  static constexpr UINT kGetColor = WM_USER + 1, kSetColor = WM_USER + 2;

  static bool registerClass(HINSTANCE instance);
};

}  // namespace cadhost
