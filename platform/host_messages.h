#pragma once
// The host's main window, as the dialogs over it need it.

#include <string_view>

#include "platform/dialog_window.h"

namespace kiv {

// The main frame, owner of the module's dialogs; null in a host without a window.
NativeWindow hostFrame();

// The host's main window without the framework's frame around it; null in a host without a window.
NativeWindow hostMainWindow();

// The keyboard goes to the main frame. Nothing in a host without a window.
void focusHost();

// In a typed text: cancels what waits for input.
inline constexpr std::wstring_view kCancelCharacter = L"\x03";

// Types a text at the host's command line, as a copied-data message of kind 1. In a host without a window the
// text is sent to the current document, and runs when no command is running.
void typeIntoHost(std::wstring_view text);

}  // namespace kiv
