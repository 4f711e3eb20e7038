#pragma once
// A font in which Japanese captions can be read.

#include <string>

namespace kiv::win32 {

// `wanted` when it is installed; else the first of the system's Japanese fonts that is, with proportional
// ones first; then any that the system puts Japanese into; `wanted` again when there is none.
std::wstring japaneseFace(const std::wstring& wanted);

}  // namespace kiv::win32
