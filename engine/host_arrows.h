#pragma once
// Arrows at the border between specifications and the host.

#include <string>
#include <string_view>

namespace kiv {

// The host's name of an arrow block. Specifications and dialogs spell one of the built-in arrows otherwise;
// every name that comes from them passes here before it meets the host.
std::wstring hostArrowName(std::wstring_view name);

}  // namespace kiv
