#pragma once
// The characters that mean something in a pattern of names.

#include <string>
#include <string_view>

namespace base {

inline constexpr std::wstring_view kWildcardCharacters = L"#@.*?~[],`";

// Whether a name, taken as a pattern, fits itself and nothing else.
inline bool isPlainPattern(std::wstring_view name) {
  return name.find_first_of(kWildcardCharacters) == std::wstring_view::npos;
}

// The pattern that fits this name and nothing else.
inline std::wstring exactPattern(std::wstring_view name) {
  std::wstring pattern;
  for (const wchar_t c : name) {
    if (kWildcardCharacters.find(c) != std::wstring_view::npos) pattern += L'`';
    pattern += c;
  }
  return pattern;
}

}  // namespace base
