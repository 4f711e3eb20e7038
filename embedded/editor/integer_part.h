#pragma once

#include <cstdint>
#include <optional>

namespace cad {

// A real without its fraction; none when no 64-bit integer holds it. A plain cast is undefined there.
inline std::optional<std::int64_t> integerPart(double value) {
  constexpr double kLimit = 9223372036854775808.0;
  if (!(value >= -kLimit && value < kLimit)) return std::nullopt;
  return static_cast<std::int64_t>(value);
}

}  // namespace cad
