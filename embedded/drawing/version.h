#pragma once
// The versions of drawing files.

#include <cstdint>
#include <string_view>

namespace cad {

enum class Version : std::uint8_t {
  kR12,
  kR13,
  kR14,
  kR2000,
  kR2004,
  kR2007,
  kR2010,
  kR2013,
  kR2018,
  kUnknown
};

// By the code that a file begins with or names ("AC1018"). One between two known ones counts as the older,
// one before R13 as R12; kUnknown: newer than all.
Version versionByCode(std::string_view code);
// Of R12 and newer; empty for kUnknown.
std::string_view versionCode(Version version);

}  // namespace cad
