#pragma once
// A drawing as a list of what is to be painted: flat shapes in drawing units, seen from above, with every
// block reference resolved. A window paints the list, a pick is tested against it; both need no file format.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "embedded/drawing/drawing.h"

namespace cad {

struct ScenePoint {
  double x = 0, y = 0;
  double bulge = 0;  // of the arc to the next point: tangent of a quarter of its angle, above 0 to the left
};

struct SceneBox {
  double left = std::numeric_limits<double>::infinity(), bottom = left;
  double right = -left, top = -left;
  bool empty() const { return left > right; }
  void add(double x, double y);
  void add(const SceneBox& other);
  void cut(const SceneBox& by);  // to what both have; empty when they do not meet
  // True when the point lies in the box grown by `margin` on every side.
  bool contains(double x, double y, double margin) const;
  bool meets(const SceneBox& other) const;
};

// A run of points; closed: the last one is joined to the first (its bulge counts).
struct SceneLoop {
  std::uint32_t first = 0, count = 0;
  bool closed = false;
};

// How an object is painted beside its palette colour.
struct SceneLook {
  std::int32_t trueColor = -1;    // 0xRRGGBB in place of the palette's
  std::int16_t lineWeight = 25;   // hundredths of a millimetre
  std::uint8_t opacity = 255;     // 0: clear
  RecordId linetype = kNoRecord;  // kNoRecord: continuous
  double linetypeScale = 1;       // drawing units that a unit of its pattern has
  auto operator<=>(const SceneLook&) const = default;
};

// A family of parallel lines of a hatch. The dashes are measured by the length of `along`.
struct SceneHatchLine {
  ScenePoint base, along, offset;  // a point of one line, the direction, the way to the next one
  std::vector<double> dashes;      // as HatchGeometry::Line has them
};

inline constexpr std::uint32_t kNoClip = 0xFFFFFFFF;
// An area outside of which items do not show.
struct SceneClip {
  std::uint32_t first = 0, count = 0;  // loops, even-odd
  SceneBox box;
};

class FontCatalogue;
class FontMetrics;

// One line of text. It stands on its base line at `origin`; `along` is the estimated run of the text, whole
// width, which a font is fitted to, and `up` the height of a capital. Skew and mirroring are in the two
// vectors.
struct SceneText {
  ScenePoint origin, along, up;
  std::wstring text;                  // without formatting codes
  const FontMetrics* font = nullptr;  // in a detailed scene, where `along` is what the font makes of it
  bool turned = false;                // full-width characters lie on their sides, for vertical writing
};

enum class SceneItemKind : std::uint8_t {
  kOutline,  // loops drawn as lines
  kFill,     // loops filled, even-odd
  kText,
  kDot,      // a point entity: one point
  kPattern,  // loops filled, even-odd, with the lines of a hatch
};

struct SceneItem {
  SceneBox box;
  RecordId entity = kNoRecord;         // the main entity of the current space that this belongs to
  std::uint32_t first = 0, count = 0;  // loops; texts for kText
  SceneItemKind kind = SceneItemKind::kOutline;
  std::uint8_t color = 7;  // 1..255 of the host's palette; 7 is black or white as the background wants it
  // In a detailed scene:
  float width = 0;         // of an outline that is drawn with a width, drawing units
  std::uint32_t look = 0;  // number of a look
  std::uint32_t clip = kNoClip;
  std::uint32_t pattern = 0;  // of kPattern: number of a hatch
};

// What a scene for pictures has beside that for a window: looks, the widths of polylines, the patterns of
// hatches, texts as wide as their fonts make them, and model space as the viewports of a paper space show it.
struct SceneDetail {
  RecordId space = kNoRecord;      // kNoRecord: the current one
  FontCatalogue* fonts = nullptr;  // outlives the scene
};

struct Scene {
  std::vector<SceneItem> items;  // in drawing order: later ones lie on top
  std::vector<SceneLoop> loops;
  std::vector<ScenePoint> points;
  std::vector<SceneText> texts;
  std::vector<SceneLook> looks;
  std::vector<SceneClip> clips;
  std::vector<std::vector<SceneHatchLine>> hatches;
  // In a detailed scene, what it does not show: objects by their types, and viewports that look from aside.
  std::map<std::string, std::size_t, std::less<>> undrawn;
  std::size_t obliqueViews = 0;
  std::vector<std::wstring> missingFonts;  // as the drawing names them
  SceneBox extents;                        // of all items; empty when nothing is shown
  bool truncated = false;  // the blocks expand into more than a scene holds; the rest is left out

  std::span<const SceneLoop> loopsOf(const SceneItem& item) const {
    return std::span(loops).subspan(item.first, item.count);
  }
  std::span<const ScenePoint> pointsOf(const SceneLoop& loop) const {
    return std::span(points).subspan(loop.first, loop.count);
  }
  std::span<const SceneText> textsOf(const SceneItem& item) const {
    return std::span(texts).subspan(item.first, item.count);
  }
};

// The current space of the drawing. Layers that are off or frozen, invisible objects and erased
// ones are left out. One pass over the space; a block's shapes are read once for all its references.
Scene buildScene(const Drawing& drawing);
Scene buildScene(const Drawing& drawing, const SceneDetail& detail);

// The loop as straight pieces that keep within `tolerance` (drawing units) of its arcs, appended to `to`;
// a closed loop ends with its first point. A quarter of a pixel's size is a good tolerance.
void flatten(std::span<const ScenePoint> points, bool closed, double tolerance, std::vector<ScenePoint>& to);

}  // namespace cad
