#pragma once
// A dialog's description as the window manager takes it, made fit for this machine.

#include <cstdint>
#include <vector>

namespace kiv::win32 {

// The description from the module's resources, with a font that is installed here and as large as the
// host's monitor needs it, all places growing with the font. Words, so that it stands at an even multiple
// of four bytes as it must. Empty when the module has no such dialog.
std::vector<std::uint32_t> dialogTemplate(int resource);

}  // namespace kiv::win32
