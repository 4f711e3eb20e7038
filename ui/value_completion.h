#pragma once
// What becomes of a value while it is typed.

#include <string>
#include <string_view>

namespace kiv {

// The text that stands in the field after the person has typed `typed`: shortened or changed until a value
// of the kind can begin with it; unchanged for kinds that take any text.
std::wstring completedValue(int kind, std::wstring_view typed);

}  // namespace kiv
