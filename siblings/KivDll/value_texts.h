#pragma once
// Properties as the texts that people read and type.

#include <optional>
#include <string>

#include "dbcolor.h"
#include "dbid.h"
#include "siblings/common/color_name.h"

namespace kiv {

// "0.25 mm", "Default", "ByLayer", "ByBlock"; none for a weight that there is not, as damaged files have.
std::optional<std::wstring> lineWeightText(AcDb::LineWeight weight);
std::wstring transparencyText(const AcCmTransparency& transparency);  // whole percent, "ByLayer", "ByBlock"
// The shortest decimal form without an exponent; what is left of a conversion's rounding is dropped.
std::wstring numberText(double value);
std::wstring degreesText(double radians);  // 0 and above, below 360
inline const wchar_t* onOffText(bool on) { return on ? L"ON" : L"OFF"; }

}  // namespace kiv
