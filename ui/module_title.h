#pragma once

namespace kiv {

// Caption of the module's message boxes.
inline constexpr const wchar_t* kModuleTitle = L"KIVGUI";

}  // namespace kiv
