#pragma once
// A text file whose lines are typed as commands.

#include <filesystem>
#include <string>
#include <string_view>

#include "base/result.h"

namespace cadhost {

// UTF-16 or UTF-8 by its byte-order mark; without one UTF-8 when it is valid, else code page 932.
std::wstring decodeScript(std::string_view bytes);

// The file's text, ending with a line end unless it is empty.
base::Result<std::wstring> readScript(const std::filesystem::path& path);

}  // namespace cadhost
