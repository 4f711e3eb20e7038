#pragma once
// Text that another program, or a module in this process, types at the command line by WM_COPYDATA: data
// kind 1, UTF-16 with its terminating zero. The character 3 cancels, a line end enters.

#include <windows.h>

#include <optional>
#include <string>

namespace cadhost {

// The text up to its zero, or to the end of the data; none for another kind of data and for odd sizes.
std::optional<std::wstring> copiedText(const COPYDATASTRUCT* data);

}  // namespace cadhost
