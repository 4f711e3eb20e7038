#include "embedded/graphics/pictures/marks.h"

#include <algorithm>

namespace cad {
namespace {

// Drawings are full of pure colours, yellow and cyan above all: on this band each of them is seen.
constexpr Rgb kBand = 0xA58FE8, kEdge = 0x6A1FB5;
constexpr std::uint8_t kBandOpacity = 150;
// Of the picture's width: they are seen in a picture of a quarter of its size as well.
constexpr double kBandShare = 1.0 / 90, kEdgeShare = 1.0 / 500;
constexpr double kLeastBand = 7, kLeastEdge = 1.5;  // pixels

class Marker {
 public:
  Marker(ScenePainter& painter, Picture& picture)
      : painter_(painter),
        picture_(picture),
        band_(std::max(kLeastBand, picture.width * kBandShare)),
        edge_(std::max(kLeastEdge, picture.width * kEdgeShare)) {}

  void band(const SceneItem& item, bool isEdge) {
    PicturePaths& paths = painter_.paths();
    paths.into(picture_.halos);
    Brush brush{isEdge ? kEdge : kBand, static_cast<float>(band_ + (isEdge ? 2 * edge_ : 0)), 255, item.clip};
    const auto outlines = painter_.outlinesOf(item);
    paths.begin(brush);
    for (const auto& line : outlines) paths.add(line, false);
    const bool isLine = item.kind == SceneItemKind::kOutline || item.kind == SceneItemKind::kDot;
    if (isLine) return;
    brush.width = 0;
    paths.begin(brush);
    for (const auto& line : outlines) paths.add(line, true);
  }

  void boxAroundSmall(const SceneItem& item, const PixelView& view) {
    const PixelPoint upper = view.point(item.box.left, item.box.top);
    const PixelPoint lower = view.point(item.box.right, item.box.bottom);
    const double around = 1.5 * band_;
    if (std::max(lower.x - upper.x, lower.y - upper.y) >= around) return;
    painter_.paths().into(picture_.markedShapes);
    painter_.paths().begin({kEdge, static_cast<float>(edge_), 255, item.clip});
    const PixelPoint corners[] = {{upper.x - around, upper.y - around},
                                  {lower.x + around, upper.y - around},
                                  {lower.x + around, lower.y + around},
                                  {upper.x - around, lower.y + around}};
    painter_.paths().add(corners, true);
  }

 private:
  ScenePainter& painter_;
  Picture& picture_;
  double band_, edge_;
};

}  // namespace

std::size_t addMarks(const Scene& scene, const std::unordered_set<RecordId>& marked, ScenePainter& painter,
                     Picture& picture) {
  if (marked.empty()) return 0;
  std::vector<const SceneItem*> items;
  std::unordered_set<RecordId> shown;
  for (const SceneItem& item : scene.items) {
    if (!marked.contains(item.entity)) continue;
    items.push_back(&item);
    shown.insert(item.entity);
  }
  picture.haloOpacity = kBandOpacity;
  Marker marker(painter, picture);
  for (const bool isEdge : {true, false})
    for (const SceneItem* item : items) marker.band(*item, isEdge);
  for (const SceneItem* item : items) marker.boxAroundSmall(*item, painter.view());
  painter.paths().into(picture.markedShapes);
  for (const SceneItem* item : items) painter.paint(*item);
  return shown.size();
}

}  // namespace cad
