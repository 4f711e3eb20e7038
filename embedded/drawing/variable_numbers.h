#pragma once
// Variables as the numbers that files keep of them.

#include <cmath>
#include <cstdint>
#include <optional>

#include "embedded/drawing/storage.h"

namespace cad {

// The most that an integer variable of 16 bits holds, below zero as above.
inline constexpr double kMostOfVariable = 32767;

// Nothing: a text, or a number that is not finite.
inline std::optional<double> asReal(const Variable& value) {
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return static_cast<double>(*integer);
  const auto* real = std::get_if<double>(&value);
  return real != nullptr && std::isfinite(*real) ? std::optional(*real) : std::nullopt;
}

// Nothing also for a number that is not whole, or beyond the limits.
inline std::optional<std::int64_t> asInteger(const Variable& value, double least = -kMostOfVariable,
                                             double most = kMostOfVariable) {
  const std::optional<double> real = asReal(value);
  if (!real || std::trunc(*real) != *real || *real < least || *real > most) return std::nullopt;
  return static_cast<std::int64_t>(*real);
}

}  // namespace cad
