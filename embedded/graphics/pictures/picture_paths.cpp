#include "embedded/graphics/pictures/picture_paths.h"

namespace cad {
namespace {

constexpr std::uint32_t kMostRuns = 2000;  // of one shape

}  // namespace

void PicturePaths::begin(const Brush& brush) {
  const auto runs = static_cast<std::uint32_t>(picture_.runs.size());
  if (!to_->empty()) {
    PictureShape& last = to_->back();
    const bool joins = (brush.width > 0 || !brush.evenOdd) && brush.opacity == 255;
    const bool same = last.color == brush.color && last.width == brush.width &&
                      last.opacity == brush.opacity && last.clip == brush.clip &&
                      last.evenOdd == brush.evenOdd;
    if (joins && same && last.first + last.count == runs && last.count < kMostRuns) return;
    if (last.count == 0) to_->pop_back();
  }
  to_->push_back({runs, 0, brush.clip, brush.color, brush.width, brush.opacity, brush.evenOdd});
}

void PicturePaths::add(std::span<const PixelPoint> points, bool closed) {
  if (points.empty()) return;
  const auto first = static_cast<std::uint32_t>(picture_.points.size());
  for (const PixelPoint& at : points) {
    const PicturePoint point = rounded(at);
    const bool isFirst = picture_.points.size() == first;
    const PicturePoint last = isFirst ? PicturePoint() : picture_.points.back();
    if (isFirst || last.x != point.x || last.y != point.y) picture_.points.push_back(point);
  }
  picture_.runs.push_back({first, static_cast<std::uint32_t>(picture_.points.size()) - first, closed});
  ++to_->back().count;
}

}  // namespace cad
