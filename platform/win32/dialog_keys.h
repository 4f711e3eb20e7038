#pragma once
// Tab, Enter, Escape and the accelerators of open dialogs.

#include "platform/win32/system.h"

namespace kiv::win32 {

// Lets the dialog that a key is meant for use it. True: done with; it must not be dispatched.
bool passToDialog(MSG& message);

// While there are dialogs, their keys come out of the host's message loop.
void listenToHostMessages(bool on);

}  // namespace kiv::win32
