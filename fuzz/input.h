#pragma once
// The bytes that a mutator is handed and hands back.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace fuzz {

inline std::string_view view(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// The number of bytes; `out` has room for them.
inline std::size_t store(std::string_view bytes, std::uint8_t* out) {
  std::memcpy(out, bytes.data(), bytes.size());
  return bytes.size();
}

}  // namespace fuzz
