#pragma once
// The values of Property::kTransparency beside 0, which is ByLayer.

#include <cstdint>

namespace cad {

inline constexpr std::int32_t kTransparencyByBlock = 0x01000000;
// The object's own, with its alpha in the last byte: 0 clear, 255 solid.
inline constexpr std::int32_t kTransparencyOwn = 0x02000000;

}  // namespace cad
