#pragma once
// Colours as a person sees them: in conversion specifications, pickers and picked values.

#include <iterator>
#include <string>

namespace kiv {

inline constexpr int kColorByBlock = 0;
inline constexpr int kColorByLayer = 256;

// "0:BYBLOCK", "1:赤", ..., "256:BYLAYER", else the number.
inline std::wstring colorText(int number) {
  constexpr const wchar_t* kNamed[] = {L"0:BYBLOCK", L"1:赤", L"2:黄", L"3:緑",
                                       L"4:水色",    L"5:青", L"6:紫", L"7:白"};
  if (number >= 0 && number < static_cast<int>(std::size(kNamed))) return kNamed[number];
  return number == kColorByLayer ? L"256:BYLAYER" : std::to_wstring(number);
}

}  // namespace kiv
