#pragma once
// What a file says of itself: its version and code page, and the way it writes groups.

#include <cstddef>
#include <string_view>

#include "embedded/drawing/drawing_file.h"
#include "embedded/dxf/dialect.h"

namespace cad::dxf {

inline constexpr std::string_view kBinarySentinel{"AutoCAD Binary DXF\r\n\x1a\0", 22};
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// `header` is the HEADER section's record; empty when the file has none.
DrawingFacts readFacts(std::string_view header, const Dialect& dialect, bool byteOrderMark);
// By the first groups of a text file; `bytes` begin with its first group.
Dialect textDialect(std::string_view bytes);
// `bytes` follow the sentinel.
Dialect binaryDialect(std::string_view bytes);
// How much of a file's beginning stands before its first group.
std::size_t prefixLength(std::string_view file);
// Of a whole file.
Dialect fileDialect(std::string_view file);

}  // namespace cad::dxf
