#pragma once
// What becomes of a value while it is typed, and whether what was typed is one.

#include <optional>
#include <string>
#include <string_view>

namespace kiv {

// The text that stands in the field after the person has typed `typed`: shortened or changed until a value
// can begin with it.
std::wstring lineweightBeginning(std::wstring_view typed);
std::wstring transparencyBeginning(std::wstring_view typed);
std::wstring percentBeginning(std::wstring_view typed);  // of a transparency without the words
std::wstring switchBeginning(std::wstring_view typed);

// The value as it will stand in the specification; nothing when the text is refused. An empty value is
// accepted by some and is no value all the same.
std::optional<std::wstring> checkedNumber(std::wstring_view typed);
std::optional<std::wstring> checkedLineweight(std::wstring_view typed);
std::optional<std::wstring> checkedTransparency(std::wstring_view typed);
std::optional<std::wstring> checkedScale(std::wstring_view typed);
std::optional<std::wstring> checkedSwitch(std::wstring_view typed);

}  // namespace kiv
