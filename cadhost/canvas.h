#pragma once
// Lines and filled areas into a picture in memory, at whatever coordinates: everything is clipped first.

#include <cstdint>
#include <span>
#include <vector>

#include "cadhost/view_transform.h"
#include "embedded/graphics/palette.h"

namespace cadhost {

using cad::Rgb;

struct PixelRect {
  int left = 0, top = 0, right = 0, bottom = 0;  // right and bottom are outside
  bool empty() const { return left >= right || top >= bottom; }
  bool operator==(const PixelRect&) const = default;
};

// A view of pixels that somebody else owns: rows from the top, without gaps, 0x00RRGGBB each.
class Canvas {
 public:
  Canvas(std::uint32_t* pixels, int width, int height);

  PixelRect whole() const { return {0, 0, width_, height_}; }
  void setClip(PixelRect clip);  // cut to the picture
  PixelRect clip() const { return clip_; }

  void clear(Rgb color);  // what is within the clip
  void dot(Pixel at, Rgb color);
  void line(Pixel from, Pixel to, Rgb color);
  // Alternating runs of two colours, as a highlighted object is shown; two pixels wide.
  void dashedLine(Pixel from, Pixel to, Rgb dash, Rgb gap);
  // The area inside an odd number of the outlines; each is closed by itself. `ends` holds the index after
  // the last point of each outline.
  void fill(std::span<const Pixel> points, std::span<const std::size_t> ends, Rgb color);

 private:
  void put(int x, int y, Rgb color) { pixels_[static_cast<std::size_t>(y) * width_ + x] = color; }
  bool inClip(int x, int y) const {
    return x >= clip_.left && x < clip_.right && y >= clip_.top && y < clip_.bottom;
  }
  bool clipLine(Pixel& from, Pixel& to) const;
  template <class Put>
  void walk(Pixel from, Pixel to, Put put);
  void fillRow(int y, std::vector<double>& crossings, Rgb color);

  std::uint32_t* pixels_;
  int width_, height_;
  PixelRect clip_;
};

}  // namespace cadhost
