#include "base/raster.h"
#include "embedded/graphics/pictures/picture.h"

namespace cad {
namespace {

void paint(const Picture& picture, const std::vector<PictureShape>& shapes, base::Raster& raster) {
  const auto pathOf = [&](const PictureShape& shape) {
    return base::RasterPath{picture.runsOf(shape), picture.points};
  };
  std::uint32_t clip = kNoClip;
  const auto change = [&](std::uint32_t to) {
    if (clip == to) return;
    if (clip != kNoClip) raster.unclip();
    if (to != kNoClip) raster.clip(pathOf(picture.clips[to]));
    clip = to;
  };
  for (const PictureShape& shape : shapes) {
    change(shape.clip);
    const base::RasterColor color{shape.color, shape.opacity};
    if (shape.width > 0) {
      raster.stroke(pathOf(shape), color, shape.width);
    } else {
      raster.fill(pathOf(shape), color, shape.evenOdd);
    }
  }
  change(kNoClip);
}

}  // namespace

base::Result<std::string> pngBytes(const Picture& picture) {
  auto raster = base::createRaster(picture.width, picture.height, picture.background);
  if (!raster) return raster.failure();
  paint(picture, picture.shapes, *raster.value());
  if (!picture.halos.empty()) {
    raster.value()->beginSheet();
    paint(picture, picture.halos, *raster.value());
    raster.value()->endSheet(picture.haloOpacity);
    paint(picture, picture.markedShapes, *raster.value());
  }
  return raster.value()->png();
}

}  // namespace cad
