#pragma once
// Which C type the value of a result buffer has, by its code.

namespace cad {

enum class ValueKind { kNothing, kText, kReal, kPoint, kShort, kLong, kInt64, kEntity, kBinary, kUnknown };

ValueKind valueKindOf(int code);

}  // namespace cad
