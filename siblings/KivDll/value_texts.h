#pragma once
// Properties as the texts that people read and type.

#include <string>

#include "dbcolor.h"
#include "dbid.h"

namespace kiv {

std::wstring colorText(int index);                     // "1:赤", "8", "0:BYBLOCK", "256:BYLAYER"
std::wstring lineWeightText(AcDb::LineWeight weight);  // "0.25 mm", "Default", "ByLayer", "ByBlock"
std::wstring transparencyText(const AcCmTransparency& transparency);  // whole percent, "ByLayer", "ByBlock"
// The shortest decimal form without an exponent; what is left of a conversion's rounding is dropped.
std::wstring numberText(double value);
std::wstring degreesText(double radians);  // 0 and above, below 360
inline const wchar_t* onOffText(bool on) { return on ? L"ON" : L"OFF"; }

}  // namespace kiv
