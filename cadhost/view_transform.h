#pragma once
// Where the drawing stands in a window: from drawing units (y up) to pixels (y down) and back.

#include "embedded/graphics/scene.h"

namespace cadhost {

struct Pixel {
  double x = 0, y = 0;
};
struct DrawingPoint {
  double x = 0, y = 0;
};

class ViewTransform {
 public:
  // Pixels, at least 1. What was in the middle of the window stays there, at the same scale.
  void setSize(int width, int height);
  int width() const { return width_; }
  int height() const { return height_; }

  // The whole box with a margin around it. An empty box or a single point: an A3 sheet about it.
  void showAll(const cad::SceneBox& box);
  // Above 1 enlarges; what is under the pixel stays under it. Stops where numbers would lose their meaning.
  void zoom(double factor, Pixel about);
  void pan(double dx, double dy);  // pixels; the drawing follows the pointer

  double pixelsPerUnit() const { return scale_; }
  Pixel toPixel(double x, double y) const {
    return {(x - centreX_) * scale_ + width_ / 2.0, (centreY_ - y) * scale_ + height_ / 2.0};
  }
  DrawingPoint toDrawing(Pixel pixel) const {
    return {(pixel.x - width_ / 2.0) / scale_ + centreX_, (height_ / 2.0 - pixel.y) / scale_ + centreY_};
  }

 private:
  int width_ = 1, height_ = 1;
  double centreX_ = 210, centreY_ = 148.5, scale_ = 1;
};

}  // namespace cadhost
