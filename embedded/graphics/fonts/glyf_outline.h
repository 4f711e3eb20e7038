#pragma once
// Outlines of a TrueType font: contours of straight pieces and quadratic curves.

#include "embedded/graphics/fonts/font_bytes.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

struct GlyfTables {
  FontBytes places, outlines;  // "loca" and "glyf"
  bool hasLongPlaces = false;
  std::size_t glyphCount = 0;

  // What the font says of a glyph; nothing for a blank and for what lies outside of the table.
  FontBytes glyph(std::size_t which) const;
};

// In the units of the font. A damaged outline ends where the damage begins.
GlyphPath glyfPath(const GlyfTables& tables, std::size_t which);

}  // namespace cad
