#pragma once
// A property's group in a record's bytes.

#include <cstdint>
#include <optional>

#include "embedded/dxf/group_cursor.h"

namespace cad::dxf {

inline constexpr int kColorNumber = 62, kTrueColor = 420, kColorName = 430;

struct Located {
  std::optional<Group> group;  // of several the one that counts
  std::uint32_t insertAt = 0;  // where a new group belongs
  // With a colour number: the true colour and its name, whose place the number takes.
  std::optional<Group> trueColor, colorName;
};

}  // namespace cad::dxf
