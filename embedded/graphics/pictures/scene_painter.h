#pragma once
// The items of a scene into the shapes of a picture.

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "embedded/graphics/pictures/dashes.h"
#include "embedded/graphics/pictures/glyph_painter.h"
#include "embedded/graphics/text_styles.h"

namespace cad {

struct PictureScale {
  PixelView view;
  double pixelsPerMillimetre = 1;  // of lineweights
  double hairline = 1;             // pixels: no line is thinner
};

class ScenePainter {
 public:
  // All of these outlive the painter.
  ScenePainter(const Drawing& drawing, const Scene& scene, FontCatalogue& fonts, const PictureScale& scale,
               Picture& picture);

  void paint(const SceneItem& item);
  void addClip(const SceneItem& area, PictureShape& clip);  // of which the loops count
  // The item's loops, or the boxes of its texts, in pixels.
  std::vector<std::vector<PixelPoint>> outlinesOf(const SceneItem& item) const;
  PicturePaths& paths() { return paths_; }
  const PixelView& view() const { return scale_.view; }
  void addRemarks();  // what could not be painted as it is

 private:
  struct Pattern {
    std::vector<Dash> dashes;
    bool isDrawn = false;  // false: the linetype is continuous
  };
  Brush brushOf(const SceneItem& item) const;
  std::vector<PixelPoint> pixelsOf(const SceneLoop& loop) const;
  void paintOutline(const SceneItem& item, Brush brush);
  void paintFill(const SceneItem& item, Brush brush);
  void paintHatch(const SceneItem& item, const Brush& brush);
  void paintText(const SceneText& text, const Brush& brush);
  void paintSymbol(const DashSymbol& symbol, PixelPoint at, PixelPoint along, double scale,
                   const Brush& brush);
  const Pattern& patternOf(RecordId linetype);

  const Drawing& drawing_;
  const Scene& scene_;
  FontCatalogue& fonts_;
  PictureScale scale_;
  Picture& picture_;
  PicturePaths paths_;
  GlyphPainter glyphs_;
  TextStyles styles_;
  std::unordered_map<RecordId, Pattern> patterns_;
  std::size_t pieces_ = 0;  // dashes and lines of hatches so far
  std::size_t solidLines_ = 0, tintedHatches_ = 0, lostTexts_ = 0, lostSymbols_ = 0;
};

}  // namespace cad
