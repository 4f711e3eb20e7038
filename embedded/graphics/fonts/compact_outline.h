#pragma once
// Outlines of an OpenType font in the compact form: cubic curves that little programs draw.

#include <memory>

#include "embedded/graphics/fonts/font_bytes.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

class CompactOutlines {
 public:
  virtual ~CompactOutlines() = default;
  virtual GlyphPath path(std::size_t glyph) const = 0;  // in the units of the font
};

// Of the table "CFF ", whose bytes outlive the outlines. Null when it has none.
std::shared_ptr<const CompactOutlines> compactOutlines(const FontBytes& table);

}  // namespace cad
