#pragma once
// Small PNG files: a palette, and the number of a colour for each pixel.

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kivcli {

// Whoever makes one bounds its size: nothing here does.
struct ColorImage {
  int width = 0, height = 0;
  std::vector<std::uint32_t> pixels;  // 0xRRGGBB, by rows from the top
};

// Keeps up to 256 colours exactly; of more, each is the nearest of 252 that lie evenly. The image has pixels.
std::string indexedPng(const ColorImage& image);

}  // namespace kivcli
