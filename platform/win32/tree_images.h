#pragma once
// The little pictures before the rows of trees.

#include <windows.h>

// Needs what windows.h declares.
#include <commctrl.h>

namespace kiv::win32 {

// 0 the root, 1 to 10 the sections, 11 a setting, 12 a condition, 13 a result, 14 an entry of a list, 15 a
// folder; in the size of the host's monitor. Belongs to the caller.
HIMAGELIST makeTreeImages();

}  // namespace kiv::win32
