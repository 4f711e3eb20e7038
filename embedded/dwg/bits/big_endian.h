#pragma once
// Words whose most significant byte comes first.

#include <bit>
#include <cstdint>
#include <cstring>

namespace cad::dwg {

constexpr std::uint64_t reversed(std::uint64_t word) {
  word = (word & 0x00FF00FF00FF00FF) << 8 | (word >> 8 & 0x00FF00FF00FF00FF);
  word = (word & 0x0000FFFF0000FFFF) << 16 | (word >> 16 & 0x0000FFFF0000FFFF);
  return word << 32 | word >> 32;
}

inline std::uint64_t bigEndianAt(const char* at) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, sizeof word);
  return std::endian::native == std::endian::big ? word : reversed(word);
}

inline void putBigEndian(char* at, std::uint64_t word) {
  if (std::endian::native != std::endian::big) word = reversed(word);
  std::memcpy(at, &word, sizeof word);
}

}  // namespace cad::dwg
