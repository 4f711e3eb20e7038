#pragma once
// What a system wants to know of the program beside its help, made from the rows of its calls and options.

#include <string>
#include <string_view>

namespace kivcli {

// The page for man(1), in the user's language.
std::wstring manualPage();

// The script by which a shell completes the program's calls, options and files; `shell` is bash, zsh or fish.
// Empty for another one.
std::wstring completionScript(std::wstring_view shell);

}  // namespace kivcli
