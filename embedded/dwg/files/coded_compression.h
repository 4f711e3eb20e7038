#pragma once
// The compression of pages in R2007.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace cad::dwg {

// Absent: the bytes are no compressed page of `size` bytes.
std::optional<std::string> decompressCoded(std::string_view bytes, std::size_t size);

// Not shorter than the bytes where these cannot be compressed.
std::string compressCoded(std::string_view bytes);

}  // namespace cad::dwg
