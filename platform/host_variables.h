#pragma once
// The host's system variables by type.

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/save_format.h"

namespace kiv {

std::optional<std::wstring> textVariable(const wchar_t* name);  // nothing: unknown, or not a text
std::optional<int> integerVariable(const wchar_t* name);        // nothing: unknown, or not an integer

// True when the host took the value.
bool setTextVariable(const wchar_t* name, const std::wstring& value);
// As RTSHORT or RTREAL. Nothing is sent that would turn into another value: a fraction, or a number of more
// than sixteen bits, as RTSHORT.
bool setNumberVariable(const wchar_t* name, short type, double value);

short variableType(const wchar_t* name);  // RTSHORT, RTREAL, RTSTR, ...; RTNONE: unknown

// By base::SaveFormat, whether the host saves drawings so. One that does not tell saves all of them.
using SaveableFormats = std::array<bool, 3>;
SaveableFormats saveableFormats();
// The format in which the drawing of this file is saved when `chosen` is wanted: a host that tells its
// formats keeps that of each drawing.
base::SaveFormat savedFormat(base::SaveFormat chosen, const std::wstring& drawingPath);

}  // namespace kiv
