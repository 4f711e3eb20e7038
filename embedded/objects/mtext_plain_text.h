#pragma once
// Multiline text as it reads on the drawing.

#include <string>
#include <string_view>

namespace cad {

// Formatting codes removed. \P, \N and \X begin a new line (a line feed), \~ is a blank; \\ \{ \} are the
// characters themselves; a stack is its two parts with a slash; ^I a tab, ^J a line feed; \U+XXXX, %%d,
// %%c, %%p and %%nnn the character they name. A code that nobody knows stays as it is.
std::wstring plainText(std::wstring_view contents);

}  // namespace cad
