#pragma once
// Texts as they read on the drawing: their codes removed, the characters that codes name in their place. A
// code that nobody knows stays as it is.

#include <string>
#include <string_view>

namespace cad {

// Of a single line: %%d, %%c, %%p, %%% and %%nnn (three digits, 32 to 255) name characters; %%u, %%o and %%k
// switch lines over, under and through the text.
std::wstring plainLine(std::wstring_view contents);

// Of multiline text. \P, \N and \X begin a new line (a line feed), \~ is a blank; \\ \{ \} are the characters
// themselves; a stack is its two parts with a slash; ^I a tab, ^J a line feed; \U+XXXX and the codes of a
// single line the character they name. It has codes of its own for lines over and under the text.
std::wstring plainText(std::wstring_view contents);

}  // namespace cad
