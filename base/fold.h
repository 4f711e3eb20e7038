#pragma once
// Case folding that does not depend on the process's locale: ASCII, Latin-1, Greek, Cyrillic and
// full-width letters, the alphabets of code page 932 and its neighbours.

#include <string>
#include <string_view>

namespace base {

wchar_t upper(wchar_t c);
std::wstring upper(std::wstring_view text);
bool equalFolded(std::wstring_view a, std::wstring_view b);
bool startsWithFolded(std::wstring_view text, std::wstring_view prefix);
bool endsWithFolded(std::wstring_view text, std::wstring_view ending);

// Blanks are space and tab (and the carriage return of a line read in binary).
std::wstring_view trim(std::wstring_view text);

}  // namespace base
