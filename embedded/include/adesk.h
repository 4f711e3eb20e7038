#pragma once
// The basic types of the host interface.

#include "AdAChar.h"

namespace Adesk {
using Int8 = signed char;
using Int16 = short;
using Int32 = int;
using Int64 = long long;
using UInt8 = unsigned char;
using UInt16 = unsigned short;
using UInt32 = unsigned int;
using UInt64 = unsigned long long;
using IntPtr = Int64;
using Boolean = bool;
inline constexpr Boolean kTrue = true;
inline constexpr Boolean kFalse = false;
}  // namespace Adesk
