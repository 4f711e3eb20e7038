#pragma once
// The host's message loop.

#include "platform/win32/system.h"

namespace kiv::win32 {

// Sees each message before the host dispatches it; TRUE keeps it. Nothing may be thrown out of it.
using MessageFilter = BOOL (*)(MSG* message);

void addMessageFilter(MessageFilter filter);
void removeMessageFilter(MessageFilter filter);

}  // namespace kiv::win32
