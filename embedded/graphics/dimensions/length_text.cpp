#include "embedded/graphics/dimensions/length_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numeric>

namespace cad {
namespace {

constexpr std::int64_t kInchesPerFoot = 12;
// What a computed half may lack: 2.5 as the difference of two coordinates is rounded as 2.5.
constexpr double kHalf = 0.5 + 1e-9;
constexpr double kMostCounted = 1e15;  // up to here doubles count single units

std::int64_t rounded(double value) { return static_cast<std::int64_t>(std::floor(value + kHalf)); }

std::wstring digits(std::int64_t number) {
  char buffer[24];
  char* const end = std::to_chars(std::begin(buffer), std::end(buffer), number).ptr;
  return std::wstring(+buffer, end);
}

// Of a number not below 0, with a point.
std::wstring fixed(double value, int places) {
  const double scaled = value * std::pow(10, places);
  if (scaled >= kMostCounted) {
    char buffer[400];  // the largest number has 309 digits
    char* const end =
        std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::fixed, places).ptr;
    return std::wstring(+buffer, end);
  }
  std::wstring text = digits(rounded(scaled));
  const auto wanted = static_cast<std::size_t>(places);
  if (text.size() <= wanted) text.insert(0, wanted + 1 - text.size(), L'0');
  if (places > 0) text.insert(text.size() - wanted, 1, L'.');
  return text;
}

std::wstring unsignedDecimal(double value, const DecimalForm& form) {
  std::wstring text = fixed(value, form.places);
  std::size_t point = text.find(L'.');
  if (point == std::wstring::npos) return text;
  if (form.dropTrailing) {
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.size() == point + 1) text.pop_back();
  }
  if (point < text.size()) {
    text[point] = form.separator;
    if (form.dropLeading && text.starts_with(L'0')) text.erase(0, 1);
  }
  return text;
}

bool isZero(std::wstring_view text) { return text.find_first_of(L"123456789") == std::wstring_view::npos; }

std::wstring scientific(double value, const DecimalForm& form) {
  char buffer[40];
  char* const end =
      std::to_chars(std::begin(buffer), std::end(buffer), value, std::chars_format::scientific, form.places)
          .ptr;
  char* const power = std::find(+buffer, end, 'e');
  double mantissa = 0;
  std::from_chars(+buffer, power, mantissa);
  return unsignedDecimal(mantissa, form) + L'E' + std::wstring(power + 1, end);
}

// The separators of a Japanese or English system, whichever this is: a drawing looks the same everywhere.
std::wstring desktop(double value, DecimalForm form) {
  form.separator = L'.';
  std::wstring text = unsignedDecimal(value, form);
  for (std::size_t at = std::min(text.find(L'.'), text.size()); at > 3; at -= 3) text.insert(at - 3, 1, L',');
  return text;
}

std::wstring feetAndInches(std::int64_t feet, std::wstring_view inches, bool noInches,
                           const LengthForm& form) {
  std::wstring text;
  const bool hasFeet = feet != 0 || form.zeroFeet;
  if (hasFeet) text = digits(feet) + L'\'';
  if (hasFeet && noInches && !form.zeroInches) return text;
  if (hasFeet) text += L'-';
  return text.append(inches) += L'"';
}

std::wstring engineering(double value, const LengthForm& form) {
  auto feet = static_cast<std::int64_t>(value / kInchesPerFoot);
  double inches = value - static_cast<double>(feet * kInchesPerFoot);
  const double unit = std::pow(10, form.decimals.places);
  if (static_cast<double>(rounded(inches * unit)) >= kInchesPerFoot * unit) ++feet, inches = 0;
  const std::wstring text = unsignedDecimal(inches, form.decimals);
  return feetAndInches(feet, text, isZero(text), form);
}

std::wstring fraction(std::int64_t part, std::int64_t whole, const LengthForm& form) {
  const std::int64_t common = std::gcd(part, whole);
  const std::wstring over = digits(part / common), under = digits(whole / common);
  if (form.fraction == FractionForm::kNotStacked) return over + L'/' + under;
  const wchar_t bar = form.fraction == FractionForm::kDiagonal ? L'#' : L'/';
  return scaledText(form.fractionHeight, L"\\S" + over + bar + under + L';');
}

// A whole number and a fraction; the number 0 goes when there is a fraction, unless it is `kept`.
std::wstring mixed(std::int64_t parts, std::int64_t whole, bool kept, const LengthForm& form) {
  const std::int64_t number = parts / whole, rest = parts % whole;
  if (rest == 0) return digits(number);
  std::wstring text;
  if (number != 0 || kept) {
    text = digits(number);
    if (form.fraction == FractionForm::kNotStacked) text += L' ';
  }
  return text += fraction(rest, whole, form);
}

std::wstring fractional(double value, const LengthForm& form) {
  const std::int64_t whole = std::int64_t{1} << form.decimals.places;
  const std::int64_t parts = rounded(value * static_cast<double>(whole));
  if (form.unit == LengthUnit::kFractional) return mixed(parts, whole, false, form);
  const std::int64_t foot = kInchesPerFoot * whole, feet = parts / foot, inches = parts % foot;
  return feetAndInches(feet, mixed(inches, whole, feet != 0 || form.zeroFeet, form), inches == 0, form);
}

std::wstring unsignedLength(double value, const LengthForm& form) {
  const bool uncounted = value >= kMostCounted;  // too long to be counted in parts of an inch
  switch (form.unit) {
    case LengthUnit::kScientific:
      return scientific(value, form.decimals);
    case LengthUnit::kEngineering:
      return uncounted ? scientific(value, form.decimals) : engineering(value, form);
    case LengthUnit::kArchitectural:
    case LengthUnit::kFractional:
      return uncounted ? scientific(value, form.decimals) : fractional(value, form);
    case LengthUnit::kDesktop:
      return desktop(value, form.decimals);
    default:
      return unsignedDecimal(value, form.decimals);
  }
}

std::wstring withSign(double value, std::wstring text) {
  if (value < 0 && !isZero(text)) text.insert(0, 1, L'-');
  return text;
}

double finite(double value) { return std::isfinite(value) ? value : 0; }

}  // namespace

std::wstring decimalText(double value, const DecimalForm& form) {
  value = finite(value);
  return withSign(value, unsignedDecimal(std::abs(value), form));
}

std::wstring lengthText(double value, const LengthForm& form) {
  value = finite(value);
  return withSign(value, unsignedLength(std::abs(value), form));
}

std::wstring scaledText(double factor, std::wstring_view text) {
  std::wstring scaled = L"{\\H" + decimalText(factor, {.places = 6, .dropTrailing = true}) + L"x;";
  return scaled.append(text) += L'}';
}

}  // namespace cad
