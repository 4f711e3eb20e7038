#pragma once
// The box around the ink of a multiline text.

#include <string_view>

#include "embedded/graphics/dimensions/figure.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

// Of a text with its formatting codes, in drawing units; `height` is the text's, above 0, and `widthFactor`
// that of its style. Lines are broken only where the text says so. Without ink it is 0 by 0. Fonts that the
// text itself names count as the style's.
TextBox textBox(std::wstring_view value, double height, double widthFactor, const FontMetrics& font);

}  // namespace cad
