#include "siblings/KivDll/value_texts.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <numbers>

#include "base/lineweights.h"

namespace kiv {

std::optional<std::wstring> lineWeightText(AcDb::LineWeight weight) {
  for (const base::Lineweight& each : base::lineweights())
    if (each.hundredths == static_cast<int>(weight)) return each.text;
  return std::nullopt;
}

std::wstring transparencyText(const AcCmTransparency& transparency) {
  if (transparency.isByBlock()) return L"ByBlock";
  if (!transparency.isByAlpha()) return L"ByLayer";
  return std::to_wstring(std::lround((255 - transparency.alpha()) * 100 / 255.0));
}

std::wstring numberText(double value) {
  constexpr double kExact = 1e9;  // a stored number has no more decimals that mean anything
  if (std::abs(value) < 1e6) value = std::round(value * kExact) / kExact;
  if (value == 0) value = 0;  // not "-0"
  char digits[400];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), value, std::chars_format::fixed);
  return std::wstring(std::begin(digits), end.ptr);
}

std::wstring degreesText(double radians) {
  double degrees = std::fmod(radians * 180 / std::numbers::pi, 360);
  if (degrees < 0) degrees += 360;
  const std::wstring text = numberText(degrees);
  return text == L"360" ? L"0" : text;
}

}  // namespace kiv
