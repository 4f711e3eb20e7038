#include "cli/reports/thumbnail.h"

#include "cli/reports/sketch.h"

namespace kivcli {

std::string thumbnail(const cad::Picture& picture, std::size_t mostBytes) {
  constexpr int kSteps[] = {Sketch::kFineness, 3, 4, 6, 10};
  Sketch sketch(picture);
  sketch.paint(picture.shapes);
  sketch.paintSheet(picture.halos, picture.haloOpacity);
  sketch.paint(picture.markedShapes);
  std::string bytes;
  int painted = 0;
  for (const int step : kSteps) {
    // What half the width of this one takes is known about; in between it is not tried.
    const auto likely = static_cast<double>(bytes.size()) * painted * painted / (step * step);
    if (!bytes.empty() && likely > 1.2 * static_cast<double>(mostBytes) && step != kSteps[4]) continue;
    bytes = indexedPng(sketch.shown(step));
    painted = step;
    if (bytes.size() <= mostBytes) break;
  }
  return bytes;
}

}  // namespace kivcli
