#include "cadhost/view_transform.h"

#include <algorithm>
#include <cmath>

namespace cadhost {
namespace {

constexpr double kMargin = 0.04;  // of the window, on every side
constexpr double kSheetWidth = 420, kSheetHeight = 297;
constexpr double kLeastScale = 1e-15, kMostScale = 1e9;  // pixels per unit
constexpr double kMostPixels = 1e14;  // of the centre's coordinates: a pixel is still a number then

}  // namespace

void ViewTransform::setSize(int width, int height) {
  width_ = std::max(width, 1);
  height_ = std::max(height, 1);
}

void ViewTransform::showAll(const cad::SceneBox& box) {
  double across = kSheetWidth, up = kSheetHeight;
  if (box.empty()) {
    centreX_ = kSheetWidth / 2;
    centreY_ = kSheetHeight / 2;
  } else {
    centreX_ = box.left / 2 + box.right / 2;
    centreY_ = box.bottom / 2 + box.top / 2;
    const double boxWidth = box.right - box.left, boxHeight = box.top - box.bottom;
    if (boxWidth > 0 || boxHeight > 0) across = boxWidth, up = boxHeight;
  }
  const double share = 1 - 2 * kMargin;
  const double byWidth = across > 0 ? width_ * share / across : kMostScale;
  const double byHeight = up > 0 ? height_ * share / up : kMostScale;
  scale_ = std::clamp(std::min(byWidth, byHeight), kLeastScale, kMostScale);
}

void ViewTransform::zoom(double factor, Pixel about) {
  const DrawingPoint fixed = toDrawing(about);
  const double furthest = std::max({std::abs(fixed.x), std::abs(fixed.y), 1.0});
  const double most = std::max(std::min(kMostScale, kMostPixels / furthest), kLeastScale);
  scale_ = std::clamp(scale_ * factor, kLeastScale, most);
  centreX_ = fixed.x - (about.x - width_ / 2.0) / scale_;
  centreY_ = fixed.y - (height_ / 2.0 - about.y) / scale_;
}

void ViewTransform::pan(double dx, double dy) {
  centreX_ -= dx / scale_;
  centreY_ += dy / scale_;
}

}  // namespace cadhost
