#pragma once
// Clicks and keys for the windows of this thread, as messages of the mouse and the keyboard.

#include "platform/user_input.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

enum class MouseButton { kLeft, kRight };
using user::Held;

// Each returns when everything that follows is done. A place is in the window's inner area.
void clickAt(HWND window, POINT place, MouseButton button = MouseButton::kLeft, Held held = Held::kNothing);
void doubleClickAt(HWND window, POINT place);
void pressKeyIn(HWND window, WPARAM virtualKey, Held held = Held::kNothing);
// With Alt, whose release goes to nobody: the system would take it for a way into the menu.
void pressWithAlt(HWND window, WPARAM virtualKey);
// False when the window went away, or became unusable, before the end of the text.
bool typeInto(HWND window, std::wstring_view text);

// A click that is under way already when this returns; nothing has been handled yet.
void postClick(HWND window, POINT place, MouseButton button = MouseButton::kLeft, Held held = Held::kNothing);

// Handles all messages that are there and those that follow from them.
void handleMessages();

POINT centreOf(const RECT& rect);
bool isUsable(HWND window);

}  // namespace kiv::win32
