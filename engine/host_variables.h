#pragma once
// System variables of the host by type.

#include <optional>
#include <string>

namespace kiv {

std::optional<std::wstring> textVariable(const wchar_t* name);  // nothing: unknown, or not a text
std::optional<int> integerVariable(const wchar_t* name);        // nothing: unknown, or not an integer

// True when the host took the value.
bool setTextVariable(const wchar_t* name, const std::wstring& value);
bool setShortVariable(const wchar_t* name, short value);
bool setRealVariable(const wchar_t* name, double value);

}  // namespace kiv
