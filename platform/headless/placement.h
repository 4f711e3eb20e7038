#pragma once
// Where a dialog without a screen stands: at the reference resolution, with the script's dialog font.

#include "platform/headless/resource_script.h"

namespace kiv::headless {

// Pixels, as the system rounds them: a width is a quarter, a height an eighth of the font's base unit.
int horizontalPixels(int dialogUnits);
int verticalPixels(int dialogUnits);

// The outer rectangle of a dialog that was just made; its place counts from the content of the owner, whose
// outer rectangle may be empty.
Rect initialPlace(const DialogResource& dialog, const Rect& owner);

// On the screen, in a dialog with this outer rectangle.
Rect controlPlace(const ResourceControl& control, const Rect& dialog);

}  // namespace kiv::headless
