#include "siblings/KivDll/value_texts.h"

#include <charconv>
#include <cmath>
#include <cwchar>
#include <iterator>
#include <numbers>

namespace kiv {

std::wstring colorText(int index) {
  constexpr const wchar_t* kNamed[] = {L"0:BYBLOCK", L"1:赤", L"2:黄", L"3:緑",
                                       L"4:水色",    L"5:青", L"6:紫", L"7:白"};
  if (index >= 0 && index < static_cast<int>(std::size(kNamed))) return kNamed[index];
  return index == 256 ? L"256:BYLAYER" : std::to_wstring(index);
}

std::wstring lineWeightText(AcDb::LineWeight weight) {
  switch (weight) {
    case AcDb::kLnWtByLayer:
      return L"ByLayer";
    case AcDb::kLnWtByBlock:
      return L"ByBlock";
    case AcDb::kLnWtByLwDefault:
      return L"Default";
    default:
      break;
  }
  const int hundredths = static_cast<int>(weight);
  std::wstring text = std::to_wstring(hundredths / 100) + L".";
  text += static_cast<wchar_t>(L'0' + hundredths / 10 % 10);
  text += static_cast<wchar_t>(L'0' + hundredths % 10);
  return text + L" mm";
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
