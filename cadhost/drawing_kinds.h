#pragma once
// The kinds of files in the choosers of drawings, and the line that saves a drawing as one of them.

#include <filesystem>
#include <string>

#include "embedded/formats/drawing_files.h"

namespace cadhost {

// As the system's choosers take them: a description and its patterns, each with a zero behind it, and a zero
// behind all of them.
std::wstring openFilter();
std::wstring saveFilter(const cad::Drawing& drawing);  // what the drawing can become

// The file with an extension under which the drawing can be saved: its own where that is one.
std::filesystem::path proposedFile(std::filesystem::path file, const cad::Drawing& drawing);

// For the command line; an existing file is overwritten. Of an extension that no kind has, the drawing's own
// kind; another kind's is for the host to refuse.
std::wstring saveLine(const std::wstring& path, const cad::Drawing& drawing);

}  // namespace cadhost
