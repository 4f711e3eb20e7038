#pragma once
// Angles as a dimension shows them.

#include <cstdint>
#include <string>

#include "embedded/graphics/dimensions/length_text.h"

namespace cad {

enum class AngleUnit : std::uint8_t { kDegrees, kMinutesSeconds, kGradians, kRadians };

struct AngleForm {
  AngleUnit unit = AngleUnit::kDegrees;
  DecimalForm decimals;  // of minutes and seconds: 1 for minutes, 3 for seconds, each more a decimal of those
};

// Minutes and seconds count in degrees.
double inUnit(double radians, AngleUnit unit);

// As multiline text, in which the degree sign is a code; `angle` is in the form's own unit.
std::wstring angleText(double angle, const AngleForm& form);

}  // namespace cad
