#pragma once
// Where the host finds files.

#include <optional>
#include <string>
#include <vector>

namespace kiv {

// The folders of the host's support path, in its order, each with its trailing separator. One that stands
// there twice comes twice.
std::vector<std::wstring> supportFolders();

// The host's file search over its support path.
std::optional<std::wstring> findHostFile(const std::wstring& name);

}  // namespace kiv
