#include "cadhost/paint.h"

#include <algorithm>
#include <cmath>

namespace cadhost {
namespace {

constexpr double kLeastReadable = 3;    // pixels of a capital's height; smaller texts are a line
constexpr double kLargestDot = 1;       // pixels
constexpr double kArcTolerance = 0.25;  // pixels

bool hasArc(std::span<const cad::ScenePoint> points) {
  return std::any_of(points.begin(), points.end(), [](const cad::ScenePoint& p) { return p.bulge != 0; });
}

}  // namespace

TextCorners textCorners(const cad::SceneText& text, const ViewTransform& view) {
  const auto at = [&](double along, double up) {
    return view.toPixel(text.origin.x + along * text.along.x + up * text.up.x,
                        text.origin.y + along * text.along.y + up * text.up.y);
  };
  return {{at(0, 0), at(1, 0), at(1, 1), at(0, 1)}};
}

bool ScenePainter::isVisible(const cad::SceneBox& box) const { return box.meets(sight_); }

bool ScenePainter::isDot(const cad::SceneBox& box) const {
  return std::max(box.right - box.left, box.top - box.bottom) * view_.pixelsPerUnit() < kLargestDot;
}

void ScenePainter::addLoop(const cad::Scene& scene, const cad::SceneLoop& loop) {
  std::span<const cad::ScenePoint> points = scene.pointsOf(loop);
  bool closed = loop.closed;
  if (hasArc(points)) {
    flat_.clear();
    cad::flatten(points, loop.closed, kArcTolerance / view_.pixelsPerUnit(), flat_);
    points = flat_;
    closed = false;
  }
  for (const cad::ScenePoint& point : points) pixels_.push_back(view_.toPixel(point.x, point.y));
  if (closed && !points.empty()) pixels_.push_back(view_.toPixel(points.front().x, points.front().y));
}

template <class Draw>
void ScenePainter::eachLine(const cad::Scene& scene, const cad::SceneItem& item, Draw draw) {
  for (const cad::SceneLoop& loop : scene.loopsOf(item)) {
    pixels_.clear();
    addLoop(scene, loop);
    for (std::size_t i = 0; i + 1 < pixels_.size(); ++i) draw(pixels_[i], pixels_[i + 1]);
    if (pixels_.size() == 1) draw(pixels_[0], pixels_[0]);
  }
}

void ScenePainter::fillLoops(const cad::Scene& scene, const cad::SceneItem& item, Rgb color) {
  pixels_.clear();
  ends_.clear();
  for (const cad::SceneLoop& loop : scene.loopsOf(item)) {
    addLoop(scene, loop);
    ends_.push_back(pixels_.size());
  }
  canvas_.fill(pixels_, ends_, color);
}

void ScenePainter::paintTexts(const cad::Scene& scene, const cad::SceneItem& item,
                              std::vector<VisibleText>& texts) {
  const Rgb color = cad::paletteColor(item.color);
  for (const cad::SceneText& text : scene.textsOf(item)) {
    if (std::hypot(text.up.x, text.up.y) * view_.pixelsPerUnit() >= kLeastReadable) {
      texts.push_back({&text, color});
      continue;
    }
    const TextCorners corners = textCorners(text, view_);
    canvas_.line(corners.corner[0], corners.corner[1], color);
  }
}

void ScenePainter::paintItem(const cad::Scene& scene, const cad::SceneItem& item) {
  const Rgb color = cad::paletteColor(item.color);
  if (isDot(item.box)) {
    canvas_.dot(view_.toPixel(item.box.left, item.box.bottom), color);
    return;
  }
  if (item.kind == cad::SceneItemKind::kFill) {
    fillLoops(scene, item, color);
    return;
  }
  eachLine(scene, item, [&](Pixel a, Pixel b) { canvas_.line(a, b, color); });
}

std::vector<VisibleText> ScenePainter::paint(const cad::Scene& scene) {
  std::vector<VisibleText> texts;
  const PixelRect clip = canvas_.clip();
  if (clip.empty()) return texts;
  const DrawingPoint lowerLeft = view_.toDrawing({double(clip.left), double(clip.bottom)});
  const DrawingPoint upperRight = view_.toDrawing({double(clip.right), double(clip.top)});
  sight_ = {};
  sight_.add(lowerLeft.x, lowerLeft.y);
  sight_.add(upperRight.x, upperRight.y);
  for (const cad::SceneItem& item : scene.items) {
    if (!isVisible(item.box)) continue;
    if (item.kind == cad::SceneItemKind::kText && !isDot(item.box))
      paintTexts(scene, item, texts);
    else
      paintItem(scene, item);
  }
  return texts;
}

void ScenePainter::highlightItem(const cad::Scene& scene, const cad::SceneItem& item) {
  const auto draw = [&](Pixel a, Pixel b) { canvas_.dashedLine(a, b, kHighlight, kBackground); };
  if (item.kind != cad::SceneItemKind::kText) {
    eachLine(scene, item, draw);
    return;
  }
  for (const cad::SceneText& text : scene.textsOf(item)) {
    const TextCorners corners = textCorners(text, view_);
    for (int i = 0; i < 4; ++i) draw(corners.corner[i], corners.corner[(i + 1) % 4]);
  }
}

void ScenePainter::highlight(const cad::Scene& scene, cad::RecordId entity) {
  if (entity == cad::kNoRecord) return;
  for (const cad::SceneItem& item : scene.items)
    if (item.entity == entity) highlightItem(scene, item);
}

}  // namespace cadhost
