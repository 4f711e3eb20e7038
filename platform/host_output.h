#pragma once
// Printing on the host's command line.

#include <string_view>

namespace kiv {

// As it stands: "%" has no meaning. A text begins with its own line break.
void printOnCommandLine(std::wstring_view text);

// "\nKivｴﾗｰ:" and the text.
void printError(std::wstring_view text);

}  // namespace kiv
