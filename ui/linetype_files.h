#pragma once
// Linetype files as the linetype loader lists them and their content.

#include <string>
#include <string_view>
#include <vector>

namespace kiv {

// The paths of the linetype files in the host's support folders, folder by folder.
std::vector<std::wstring> linetypeFiles();

struct LinetypeHeader {
  std::wstring name;
  std::wstring description;  // as it is shown: " [Dashed __ __]"
};

// The linetypes that the first 8192 bytes of a file define, in its order: headers of the form
// "*NAME,description" that follow a line end and have one. Without CONTINUOUS, which every drawing has.
std::vector<LinetypeHeader> linetypeHeaders(std::string_view bytes);

// Of a file that the host finds; empty where it finds none or the file cannot be read.
std::vector<LinetypeHeader> readLinetypeHeaders(const std::wstring& path);

}  // namespace kiv
