#pragma once
// The text of the module's resource script, as it was when the program was built. Linked in with the
// resources (the target ui_resources), so a program without them does not link.

#include <string_view>

namespace kiv::headless {

// UTF-8
std::string_view resourceScriptText();
std::string_view resourceHeaderText();

}  // namespace kiv::headless
