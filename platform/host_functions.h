#pragma once
// Functions that the host and other modules define by name, called through the host.

#include <optional>

namespace kiv {

// The host's colour dialog, without the choices by layer and by block. `present` is a colour number, 1 to
// 255. Nothing when the person cancels it, and where the host has no such dialog,
// which its command line then says.
std::optional<int> chooseHostColor(int present);

}  // namespace kiv
