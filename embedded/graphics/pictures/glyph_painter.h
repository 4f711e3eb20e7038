#pragma once
// Texts as what their fonts draw. For characters that a font lacks, and for fonts that nobody has, the fonts
// of the machine stand in, as wide as the missing ones are taken to be.

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "embedded/graphics/fonts/font_metrics.h"
#include "embedded/graphics/pictures/picture_paths.h"

namespace cad {

// Where a text stands, in pixels: its beginning on the base line, and the ways of one height of the font
// along and up.
struct TextPlace {
  PixelPoint origin, along, up;
};

class GlyphPainter {
 public:
  GlyphPainter(PicturePaths& paths, FontCatalogue& fonts) : paths_(paths), fonts_(fonts) {}

  // `brush.width` is that of strokes. False: characters of it are nowhere.
  bool paint(std::wstring_view text, const FontMetrics& font, bool turned, const TextPlace& place,
             const Brush& brush);
  void paint(const GlyphPath& path, const TextPlace& place, const Brush& brush);

 private:
  struct Drawn {
    GlyphPath path;
    double stretch = 1;  // across, of what stands in
  };
  const Drawn& drawn(char32_t c, const FontMetrics& font);
  const std::vector<std::shared_ptr<const FontMetrics>>& standIns();

  PicturePaths& paths_;
  FontCatalogue& fonts_;
  std::map<std::pair<const FontMetrics*, char32_t>, Drawn> glyphs_;
  std::vector<std::shared_ptr<const FontMetrics>> standIns_;
  bool lookedFor_ = false;
  std::vector<PixelPoint> contour_;
};

// How far a text runs, in heights of the font; and its characters, where one needs two units.
double runOf(std::wstring_view text, const FontMetrics& font);

}  // namespace cad
