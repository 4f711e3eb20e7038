#pragma once
// What open dialogs take out of the message loop: Tab, Enter, Escape and their access keys, and the second
// click on an entry of a combo box.

#include "platform/win32/system.h"

namespace kiv::win32 {

// Lets the dialog that the message is meant for use it. True: done with; it must not be dispatched.
bool passToDialog(MSG& message);

// While there are dialogs, their keys come out of the host's message loop.
void listenToHostMessages(bool on);

}  // namespace kiv::win32
