#pragma once
// Pictures of pixels: paths painted over each other, and what comes of it as the bytes of a PNG file. What
// paints stands in a library of its own beside the programs, which is loaded when the first picture is made.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "base/result.h"

namespace base {

// From the upper left corner, y downwards; pixels.
struct RasterPoint {
  float x = 0, y = 0;
};

struct RasterRun {
  std::uint32_t first = 0, count = 0;  // points; a single one is a dot of a stroke
  bool closed = false;
};

// Runs, and the points that their numbers mean.
struct RasterPath {
  std::span<const RasterRun> runs;
  std::span<const RasterPoint> points;
};

struct RasterColor {
  std::uint32_t rgb = 0;       // 0xRRGGBB
  std::uint8_t opacity = 255;  // 0: clear
};

class Raster {
 public:
  virtual ~Raster() = default;
  // Even-odd, or else by the non-zero rule.
  virtual void fill(const RasterPath& path, RasterColor color, bool evenOdd) = 0;
  // Ends and corners are round.
  virtual void stroke(const RasterPath& path, RasterColor color, float width) = 0;
  // What is painted until the matching unclip() shows within the path (even-odd), and within those before it.
  virtual void clip(const RasterPath& path) = 0;
  virtual void unclip() = 0;
  // What is painted between the two is one sheet, which is laid on the picture with this opacity. Not nested.
  virtual void beginSheet() = 0;
  virtual void endSheet(std::uint8_t opacity) = 0;
  // Failure: no memory, or what the system says.
  virtual Result<std::string> png() = 0;
};

// Failure: the library is not there or cannot be loaded, or there is no memory for a picture of this size.
Result<std::unique_ptr<Raster>> createRaster(int width, int height, std::uint32_t background);

// What the library exports, under this name. Null: no memory. The caller owns the raster.
using CreateRaster = Raster* (*)(int width, int height, std::uint32_t background);
inline constexpr char kCreateRaster[] = "kivCreateRaster";

}  // namespace base
