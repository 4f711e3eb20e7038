#pragma once
// Numbers and lengths as a dimension shows them.

#include <cstdint>
#include <string>

namespace cad {

// How a number with decimal places is written.
struct DecimalForm {
  int places = 4;  // 0 to 8
  wchar_t separator = L'.';
  bool dropLeading = false;   // ".5"
  bool dropTrailing = false;  // "0.5" of 0.5000
};

// Halves are rounded away from zero; what is not a number counts as 0.
std::wstring decimalText(double value, const DecimalForm& form);

enum class LengthUnit : std::uint8_t {
  kScientific = 1,
  kDecimal,
  kEngineering,    // feet and inches with decimals
  kArchitectural,  // feet and inches with fractions
  kFractional,
  kDesktop,  // as the operating system writes numbers
};

enum class FractionForm : std::uint8_t { kHorizontal, kDiagonal, kNotStacked };

struct LengthForm {
  LengthUnit unit = LengthUnit::kDecimal;
  DecimalForm decimals;  // `places` of fractions: their smallest part is one half to the power of it
  bool zeroFeet = false, zeroInches = false;  // written as well: 0'-6", 1'-0"
  FractionForm fraction = FractionForm::kHorizontal;
  double fractionHeight = 1;  // of stacked fractions, to the text's height
};

// As multiline text: stacked fractions have formatting codes.
std::wstring lengthText(double value, const LengthForm& form);

// The code for a part of a text that has its own height: {\H0.7x;...}. Without trailing zeros, as the host
// writes it.
std::wstring scaledText(double factor, std::wstring_view text);

}  // namespace cad
