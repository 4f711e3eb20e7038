#pragma once
// Numbers in as many bytes, or words of two, as they need: the highest bit of each tells whether more follow.

#include <cstdint>
#include <string>

namespace cad::dwg {

inline void appendUmc(std::string& bytes, std::uint64_t value) {
  for (; value > 0x7F; value >>= 7) bytes += static_cast<char>(value | 0x80);
  bytes += static_cast<char>(value);
}

inline void appendMc(std::string& bytes, std::int64_t value) {
  std::uint64_t left = value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  for (; left > 0x3F; left >>= 7) bytes += static_cast<char>(left | 0x80);
  bytes += static_cast<char>(left | (value < 0 ? 0x40 : 0));
}

// Below 2 to the power of 30.
inline void appendMs(std::string& bytes, std::uint32_t value) {
  const auto append = [&](std::uint32_t word) {
    bytes += static_cast<char>(word);
    bytes += static_cast<char>(word >> 8);
  };
  if (value > 0x7FFF) append(value | 0x8000), value >>= 15;
  append(value);
}

}  // namespace cad::dwg
