#pragma once
// The window styles that the module's resource script uses.

#include <cstdint>
#include <optional>
#include <string_view>

namespace kiv::headless {

namespace style {
inline constexpr std::uint32_t kVisible = 0x10000000;
inline constexpr std::uint32_t kDisabled = 0x08000000;
inline constexpr std::uint32_t kGroup = 0x00020000;
inline constexpr std::uint32_t kTabStop = 0x00010000;
inline constexpr std::uint32_t kReadOnly = 0x0800;  // of an edit
inline constexpr std::uint32_t kNoPrefix = 0x0080;  // of a label: & is a character like any other
inline constexpr std::uint32_t kPicture = 0x0040;   // of a button: in place of its caption
inline constexpr std::uint32_t kButtonType = 0x000F;
inline constexpr std::uint32_t kDefaultButton = 0x0001;    // a button's type; 0 of any other push button
inline constexpr std::uint32_t kSingleSelection = 0x0004;  // of a list
inline constexpr std::uint32_t kDropDownList = 0x0003;     // of a combo box: no text can be typed
}  // namespace style

// The bits of a style's name ("WS_TABSTOP"); none for a name that is not known here.
std::optional<std::uint32_t> styleBits(std::wstring_view name);

}  // namespace kiv::headless
