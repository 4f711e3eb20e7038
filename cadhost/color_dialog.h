#pragma once
// The host's colour dialog: the table of the colour numbers and a field for one.

#include <windows.h>

#include <optional>

namespace cadhost {

struct ColorQuestion {
  int present = 7;            // 0 by block, 1 to 255, 256 by layer
  bool allowsByOther = true;  // by layer and by block
};

// The chosen number; nothing when the person cancels. The owner takes no input meanwhile.
std::optional<int> askColor(HWND owner, const ColorQuestion& question);

// The function "acad_colordlg" of modules and scripts: a colour number, and nil where neither by layer nor by
// block may be chosen. Returns the number, nil when it is cancelled, nothing when it is called otherwise.
void answerColorCall(HWND owner);

// For new objects: the drawing's variable CECOLOR. False: the drawing refuses it.
bool askDrawingColor(HWND owner);

}  // namespace cadhost
