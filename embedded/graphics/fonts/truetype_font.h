#pragma once
// TrueType and OpenType fonts, alone or in a collection. Only what measures a character is read: its advance
// and the box of its outline, which the file tells. Nothing of the file is trusted: what lies outside of it
// or of its tables counts as not there.

#include <memory>
#include <string_view>

#include "base/files.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {

// Null for a file that is no such font, or that tells no height. Of a collection the face of this name
// counts, else the first. Characters that the font lacks are averages. An OpenType font with outlines of the
// other kind tells advances and left edges; the rest is averages.
std::shared_ptr<const FontMetrics> trueTypeFont(std::unique_ptr<base::FileBytes> file,
                                                std::wstring_view typeface);

}  // namespace cad
