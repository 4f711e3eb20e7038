#pragma once
// Numbers as texts, whatever the process's locale. At the start of a text blanks and a sign are taken, the
// rest of the text is ignored, and a text that starts with no number counts as 0.

#include <string>
#include <string_view>

namespace base {

// As the C library of Windows reads it, full-width digits included. Saturates.
int leadingInteger(std::wstring_view text);
// True when the text, but for blanks around it, is the integer that leadingInteger() finds.
bool isInteger(std::wstring_view text);

double leadingReal(std::wstring_view text);  // "1.5E2" is 150; never infinite, never NaN
// True when the text, but for blanks around it, is the number that leadingReal() finds.
bool isReal(std::wstring_view text);

// The shortest text that is read as this number.
std::wstring numberText(double number);

}  // namespace base
