#pragma once
// Colours as texts. A colour number is 0 by block, 1 to 255 an index, 256 by layer; other numbers occur in
// files and are carried along.

#include <string>
#include <string_view>

#include "siblings/common/color_name.h"

namespace kiv {

// Of a text as a person sees or types it. A text with a ":" or a blank is cut there and the larger number of
// the two halves counts.
int colorNumber(std::wstring_view text);

// As a file has it: "BYBLOCK", "BYLAYER" or the number.
std::wstring colorFileText(int number);
int colorNumberOfFileText(std::wstring_view text);

// A layer has nothing to take a colour from: an index only.
inline bool isLayerColor(int number) { return number > kColorByBlock && number < kColorByLayer; }

// The integer that a text begins with, as the C library reads it; 0 when there is none. Saturates.
int leadingInteger(std::wstring_view text);
// True when the text, but for blanks around it, is the integer that leadingInteger() finds.
bool isInteger(std::wstring_view text);

}  // namespace kiv
