#pragma once
// The entities of a block whose content the host makes.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "embedded/drawing/geometry.h"

namespace cad {

struct BlockEntity {
  std::string_view type;  // "LINE"; a literal, or the drawing's own name, which lasts as long as it
  // The place of a multi-line text is a world point; its rotation is that in the system of the normal.
  Geometry geometry;
  std::wstring layer;
  std::wstring linetype;     // empty: ByLayer
  std::wstring textStyle;    // of texts; empty: Standard
  std::int16_t color = 256;  // 0 ByBlock, 256 ByLayer
  std::int16_t lineWeight = -1;
  std::int32_t transparency = 0;          // as Property::kTransparency
  std::optional<std::int32_t> trueColor;  // 0xRRGGBB beside the number
};

}  // namespace cad
