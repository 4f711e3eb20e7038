#pragma once
// Whether a typed text is a value of its kind.

#include <optional>
#include <string>
#include <string_view>

namespace kiv {

// The value as it will stand in the specification; nothing when the text is refused. An empty value is
// accepted by some kinds and is no value all the same.
std::optional<std::wstring> checkedValue(int kind, std::wstring_view typed);

}  // namespace kiv
