#pragma once
// Fonts of compiled shapes.

#include <memory>
#include <optional>

#include "embedded/graphics/fonts/font_metrics.h"
#include "embedded/support/shape_file.h"

namespace cad {

// Null when the file has no facts of a font. Characters that neither has are averages. A big font is taken as
// one of the Japanese code page.
std::shared_ptr<const FontMetrics> shapeFont(support::ShapeFile font,
                                             std::optional<support::ShapeFile> bigFont);

// What a shape draws: of a font in heights of its capitals, else in the units of the file.
GlyphPath shapePath(const support::ShapeFile& file, std::string_view codes);

}  // namespace cad
