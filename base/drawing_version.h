#pragma once
// The versions of drawing files.

#include <cstdint>
#include <string_view>

namespace base {

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

// The versions that have a thing which came and may have gone again.
struct VersionRange {
  Version first = Version::kR12, last = Version::kUnknown;

  constexpr bool hold(Version version) const { return version >= first && version <= last; }
};

// By the code that a file begins with or names ("AC1018"). One between two known ones counts as the older,
// one before R13 as R12; kUnknown: newer than all.
Version versionByCode(std::string_view code);
// Of R12 and newer; empty for kUnknown.
std::string_view versionCode(Version version);
// As the programs that write it call it: "R12", "2018".
const wchar_t* releaseName(Version version);

}  // namespace base
