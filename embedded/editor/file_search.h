#pragma once
// Finding a file by the host's search order.

#include <filesystem>
#include <string>
#include <string_view>

namespace cad {

// The current folder, the drawing's folder, the support path, the folders of the program and the loaded
// modules; a name with a folder only there. Case is ignored in the file's name. Empty when not found.
std::filesystem::path findFile(std::wstring_view name);

// The folders of the support path, separated by ";".
std::wstring supportPathText();

// The folder for files of the running process, with its last separator.
std::wstring temporaryFolderText();

}  // namespace cad
