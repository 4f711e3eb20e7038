#pragma once
// The name of the conversion log of one run of the program.

#include <string>

namespace kivcli {

// The full path in `folder`, named after the local time to the second, as the module's own logs are.
// Empty for an empty folder.
std::wstring logFilePath(const std::wstring& folder);

}  // namespace kivcli
