#pragma once
// The compression of pages in R2004 and R2010 to R2018.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cad::dwg {

// Absent: the bytes are no compressed page, or one of more than `limit` bytes.
std::optional<std::string> decompressPage(std::string_view bytes, std::size_t limit);

// `bytes`: at least four.
std::string compressPage(std::string_view bytes);

}  // namespace cad::dwg
