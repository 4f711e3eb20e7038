#pragma once
// The kinds of drawing files that people name: by a word of the SAVEAS command, or by a file's extension.

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace cad {
class Drawing;
}

namespace cad::formats {

enum class FileKind : std::uint8_t { kDwg, kDxf, kDwt };

std::wstring_view kindName(FileKind kind);  // "DXF"; it is the extension, too
// A file of another extension, or of none, is one of the host's own kind.
FileKind kindOf(std::wstring_view extension);  // ".dxf", in any case
// Whether the drawing can be saved as a file of this kind: a drawing keeps its format.
bool canSave(const Drawing& drawing, FileKind kind);

}  // namespace cad::formats
