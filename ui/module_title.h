#pragma once

namespace kiv {

// What the module calls itself: in the captions of its message boxes and in the batch report.
inline constexpr const wchar_t* kModuleTitle = L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ";

}  // namespace kiv
