#pragma once
// Patterns of names, as far as a specification is judged without a drawing.

#include <string_view>

namespace kiv {

// Can one name match both patterns? Both upper-cased. False only when none can: sets, inverted patterns,
// alternatives and escaped characters are not looked into.
bool canShareName(std::wstring_view a, std::wstring_view b);

}  // namespace kiv
