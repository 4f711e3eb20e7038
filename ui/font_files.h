#pragma once
// The shape fonts (*.shx) of the host's support folders.

#include <string>
#include <string_view>
#include <vector>

namespace kiv {

struct ShapeFonts {
  std::vector<std::wstring> ordinary, big;  // names of files without their folders, each once
};

// Folder by folder, in the order in which the system gives the files. One that cannot be read counts as
// ordinary.
ShapeFonts shapeFonts();

// Whether a file that begins with these bytes is a big font: its first line says so within its first 255
// characters.
bool isBigFont(std::string_view bytes);

}  // namespace kiv
