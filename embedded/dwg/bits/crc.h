#pragma once
// The checksums of DWG files.

#include <cstdint>
#include <string_view>

namespace cad::dwg {

// The 16-bit CRC of objects and sections; 0xC0C1 is its usual start.
std::uint16_t crc16(std::uint16_t start, std::string_view bytes);
inline constexpr std::uint16_t kCrcStart = 0xC0C1;

// The 32-bit CRC of zip files, of the header block since 2004.
std::uint32_t crc32(std::uint32_t start, std::string_view bytes);

// The sums modulo 65521 of the pages since 2004.
std::uint32_t pageChecksum(std::uint32_t start, std::string_view bytes);

// Of R2007 alone. They begin with a seed, that of the file, and with the length of what they are of.
std::uint64_t headerCrc64(std::string_view bytes);
std::uint64_t pageCrc64(std::uint64_t seed, std::string_view bytes);
std::uint32_t dataChecksum(std::string_view bytes);

}  // namespace cad::dwg
