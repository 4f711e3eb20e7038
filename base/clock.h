#pragma once
// The local time as text.

#include <ctime>
#include <functional>
#include <string>

namespace base {

// A format of the C library, for example L"%Y年%m月%d日 %H:%M:%S". Empty when the time cannot be converted or
// the text has more than 127 characters.
std::wstring localTimeText(const wchar_t* format);

// The same of another time than now.
std::wstring localTimeText(const wchar_t* format, std::time_t time);

// The format of a conversion log's file name.
inline constexpr const wchar_t* kLogNameFormat = L"%Y%m%d_%Hh%Mm%SsMorlux.log";

// Tests set the time; an empty function brings back the system's clock.
void setClock(std::function<std::time_t()> clock);

}  // namespace base
