#pragma once
// A drawing as a list of what is to be painted: flat shapes in drawing units, seen from above, with every
// block reference resolved. A window paints the list, a pick is tested against it; both need no file format.

#include <cstddef>
#include <cstdint>
#include <limits>
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
  // True when the point lies in the box grown by `margin` on every side.
  bool contains(double x, double y, double margin) const;
  bool meets(const SceneBox& other) const;
};

// A run of points; closed: the last one is joined to the first (its bulge counts).
struct SceneLoop {
  std::uint32_t first = 0, count = 0;
  bool closed = false;
};

// One line of text. It stands on its base line at `origin`; `along` is the estimated run of the text, whole
// width, which a font is fitted to, and `up` the height of a capital. Skew and mirroring are in the two
// vectors.
struct SceneText {
  ScenePoint origin, along, up;
  std::wstring text;  // without formatting codes
};

enum class SceneItemKind : std::uint8_t {
  kOutline,  // loops drawn as lines
  kFill,     // loops filled, even-odd
  kText,
  kDot,  // a point entity: one point
};

struct SceneItem {
  SceneBox box;
  RecordId entity = kNoRecord;         // the main entity of the current space that this belongs to
  std::uint32_t first = 0, count = 0;  // loops; texts for kText
  SceneItemKind kind = SceneItemKind::kOutline;
  std::uint8_t color = 7;  // 1..255 of the host's palette; 7 is black or white as the background wants it
};

struct Scene {
  std::vector<SceneItem> items;  // in drawing order: later ones lie on top
  std::vector<SceneLoop> loops;
  std::vector<ScenePoint> points;
  std::vector<SceneText> texts;
  SceneBox extents;        // of all items; empty when nothing is shown
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

// The current space of the drawing (TILEMODE). Layers that are off or frozen, invisible objects and erased
// ones are left out. One pass over the space; a block's shapes are read once for all its references.
Scene buildScene(const Drawing& drawing);

// The loop as straight pieces that keep within `tolerance` (drawing units) of its arcs, appended to `to`;
// a closed loop ends with its first point. A quarter of a pixel's size is a good tolerance.
void flatten(std::span<const ScenePoint> points, bool closed, double tolerance, std::vector<ScenePoint>& to);

}  // namespace cad
