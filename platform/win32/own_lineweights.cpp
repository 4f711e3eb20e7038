// The hosts of this tree have no list of lineweights of their own.
#include "platform/win32/host_lineweights.h"

namespace kiv::win32 {

std::unique_ptr<HostLineweights> lendHostLineweights(HWND) { return nullptr; }

}  // namespace kiv::win32
