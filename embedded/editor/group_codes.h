#pragma once
// Which C type the value of a result buffer has, by its code.

namespace cad {

enum class ValueKind { kNothing, kText, kReal, kPoint, kShort, kLong, kInt64, kEntity, kBinary, kUnknown };

ValueKind valueKindOf(int code);

// Whether a selection filter may hold the code: those of a drawing's groups, -3 and -4. Type codes as RTSTR
// are none, nor is RTDXF0, which stands for group 0 in arguments only.
bool isFilterCode(int code);

}  // namespace cad
