#pragma once
// Real numbers at the start of a text, whatever the process's locale: blanks and a sign are taken, the rest
// of the text is ignored, and a text that starts with no number counts as 0.

#include <string_view>

namespace kiv {

double leadingReal(std::wstring_view text);  // "1.5E2" is 150; never infinite, never NaN

// True when the text, but for blanks around it, is the number that leadingReal() finds.
bool isReal(std::wstring_view text);

}  // namespace kiv
