#pragma once
// Telling a person what went wrong, on the host's command line.

#include <string_view>

#include "siblings/common/host_output.h"

namespace kiv {

// "\nKivｴﾗｰ:" and the text.
void printError(std::wstring_view text);

}  // namespace kiv
