#pragma once
// The local time as text.

#include <ctime>
#include <functional>
#include <string>

namespace kiv {

// A format of the C library, for example L"%Y年%m月%d日 %H:%M:%S". Empty when the time cannot be converted or
// the text has more than 127 characters.
std::wstring localTimeText(const wchar_t* format);

// Tests set the time; an empty function brings back the system's clock.
void setClock(std::function<std::time_t()> clock);

}  // namespace kiv
