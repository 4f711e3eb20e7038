#pragma once
// What the name of a font says.

#include <string_view>

#include "base/fold.h"

namespace base {

// A file of compiled shapes, with which a big font may go; any other font is a typeface or the file of one.
inline bool isShapeFont(std::wstring_view font) { return endsWithFolded(font, L".shx"); }

}  // namespace base
