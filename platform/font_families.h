#pragma once
// The TrueType fonts of the system.

#include <string>
#include <vector>

#include "platform/dialog_window.h"

namespace kiv {

struct FontFamily {
  std::wstring name;   // of the face; where the system has faces for vertical writing, theirs begin with "@"
  std::wstring style;  // of its regular face, in the system's words: "Regular", "標準"
};

// Each family once, in the order in which the system tells them for what is shown in the window. Empty where
// it tells none.
std::vector<FontFamily> fontFamilies(NativeWindow window);

}  // namespace kiv
