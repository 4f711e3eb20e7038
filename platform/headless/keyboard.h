#pragma once
// What keys and clicks do to the controls of a window in memory, handlers included. The window may have lost
// its dialog after each call.

#include "platform/headless/window.h"
#include "platform/user_input.h"

namespace kiv::headless {

void pressButton(MemoryWindow& window, MemoryControl& button);
void chooseEntry(MemoryWindow& window, MemoryControl& combo, int entry);
void chooseItem(MemoryWindow& window, MemoryControl& tree, TreeItem item);
void chooseRow(MemoryWindow& window, MemoryControl& listOrGrid, int row,
               user::Held held = user::Held::kNothing);
// Opens or closes the item, as a double click does.
void turnItem(MemoryWindow& window, MemoryControl& tree, TreeItem item);

// In an edit or the field of a combo box, at its caret.
void typeCharacter(MemoryWindow& window, MemoryControl& control, wchar_t character);
void eraseText(MemoryWindow& window, MemoryControl& control);

// In the control that has the keyboard.
void pressKey(MemoryWindow& window, Key key, bool shift);

// With Alt, wherever the keyboard is.
void pressAccessKey(MemoryWindow& window, wchar_t letter);

// Escape and the closing box press the button of id 2; where that is disabled nothing happens.
bool canCancel(const MemoryWindow& window);
void cancel(MemoryWindow& window);

}  // namespace kiv::headless
