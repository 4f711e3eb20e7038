#include "embedded/graphics/dimensions/angle_text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace cad {
namespace {

constexpr std::wstring_view kDegreeSign = L"\\U+00B0";  // as the host writes it, whatever the code page

// Suppressed zeros are whole parts here: 0° in front, 0' and 0" at the end.
std::wstring minutesAndSeconds(double degrees, const AngleForm& form) {
  constexpr std::int64_t kMinutes = 60, kSeconds = 3600;
  const int places = form.decimals.places;
  if (places <= 0) return decimalText(degrees, {.places = 0}).append(kDegreeSign);
  const bool withSeconds = places >= 3;
  const int decimals = std::max(0, places - 4);
  const double unit = withSeconds ? kSeconds * std::pow(10, decimals) : kMinutes;
  const double parts = std::round(degrees * unit), perMinute = unit / kMinutes;
  const double whole = std::floor(parts / unit), minutes = std::floor((parts - whole * unit) / perMinute);
  const double seconds = parts - whole * unit - minutes * perMinute;
  std::wstring text;
  if (whole != 0 || !form.decimals.dropLeading || parts == 0)
    text = decimalText(whole, {.places = 0}).append(kDegreeSign);
  const bool hasSeconds = withSeconds && !(form.decimals.dropTrailing && seconds == 0);
  if (hasSeconds || minutes != 0 || !form.decimals.dropTrailing)
    text += decimalText(minutes, {.places = 0}) + L'\'';
  if (hasSeconds)
    text += decimalText(seconds / std::pow(10, decimals), {decimals, form.decimals.separator}) + L'"';
  return text;
}

}  // namespace

double inUnit(double radians, AngleUnit unit) {
  const double turns = radians / (2 * std::numbers::pi);
  if (unit == AngleUnit::kRadians) return radians;
  return turns * (unit == AngleUnit::kGradians ? 400 : 360);
}

std::wstring angleText(double angle, const AngleForm& form) {
  switch (form.unit) {
    case AngleUnit::kMinutesSeconds:
      return (angle < 0 ? L"-" : L"") + minutesAndSeconds(std::abs(angle), form);
    case AngleUnit::kGradians:
      return decimalText(angle, form.decimals) + L'g';
    case AngleUnit::kRadians:
      return decimalText(angle, form.decimals) + L'r';
    default:
      return decimalText(angle, form.decimals).append(kDegreeSign);
  }
}

}  // namespace cad
