#pragma once
// A drawing as a picture: painted paths in pixels, with lineweights, linetypes, fonts, hatch patterns and
// viewports, which are then written as SVG or PNG.

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/raster.h"
#include "base/result.h"
#include "embedded/drawing/drawing.h"
#include "embedded/graphics/palette.h"
#include "embedded/graphics/scene.h"

namespace cad {

inline constexpr int kLeastPictureWidth = 16, kMostPictureWidth = 20000;  // pixels; of the height likewise

struct PictureOptions {
  // Empty: the space that is current in the drawing; "Model": model space; else the name of a layout. Case
  // does not count.
  std::wstring layout;
  int width = 1600;  // of the whole picture, pixels; the height follows the extents
  std::vector<std::filesystem::path> fontFolders;  // looked through before the system's fonts
  std::unordered_set<RecordId> marked;             // main entities of the space that get a mark
  Rgb background = 0xFFFFFF;
};

using PicturePoint = base::RasterPoint;
using PictureRun = base::RasterRun;

// Runs that are painted alike, and in one go.
struct PictureShape {
  std::uint32_t first = 0, count = 0;  // runs
  std::uint32_t clip = kNoClip;        // number of a clip
  Rgb color = 0;
  float width = 0;  // of the stroke, pixels; 0: filled
  std::uint8_t opacity = 255;
  bool evenOdd = true;  // how it is filled; else by the non-zero rule
};

struct Picture {
  int width = 0, height = 0;  // pixels
  Rgb background = 0xFFFFFF;
  std::vector<PictureShape> shapes;  // later ones lie on top
  // Behind `shapes` in order, and painted as one sheet with `haloOpacity`: what marks entities. Behind it
  // come the marked entities once more, so that the mark does not dim them.
  std::vector<PictureShape> halos, markedShapes;
  std::uint8_t haloOpacity = 0;
  std::vector<PictureRun> runs;
  std::vector<PicturePoint> points;
  std::vector<PictureShape> clips;  // as areas, even-odd
  // What the picture does not show, or not as it is, in complete sentences.
  std::vector<std::wstring> remarks;

  std::span<const PictureRun> runsOf(const PictureShape& shape) const {
    return std::span(runs).subspan(shape.first, shape.count);
  }
  std::span<const PicturePoint> pointsOf(const PictureRun& run) const {
    return std::span(points).subspan(run.first, run.count);
  }
};

// Refused: a width out of its limits, a layout that the drawing does not have (the reason names those that it
// has), a space that shows nothing.
base::Result<Picture> drawPicture(const Drawing& drawing, const PictureOptions& options);

// By the extension of the file that it is written to, in any case.
bool isSvgName(std::wstring_view file);
bool isPngName(std::wstring_view file);

// The same picture gives the same bytes on every system.
std::string svgText(const Picture& picture);
// Failure: what paints pictures is not installed beside the program, or has no memory for this one.
base::Result<std::string> pngBytes(const Picture& picture);

}  // namespace cad
