#pragma once
// The fonts that the operating system has.

#include <filesystem>
#include <string_view>

namespace cad {

// A font's file by its name, ignoring case and folders before it; empty: there is none. The folders are
// looked through once.
std::filesystem::path systemFont(std::wstring_view file);

}  // namespace cad
