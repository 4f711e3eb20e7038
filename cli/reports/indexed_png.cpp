#include "cli/reports/indexed_png.h"

#include <zlib.h>

#include <new>
#include <string_view>
#include <unordered_map>

namespace kivcli {
namespace {

struct Indexed {
  std::vector<std::uint32_t> palette;
  std::vector<std::uint8_t> numbers;
};

constexpr unsigned kReds = 6, kGreens = 7, kBlues = 6;

std::uint8_t evenNumber(std::uint32_t color) {
  const auto level = [](std::uint32_t channel, unsigned levels) {
    return ((channel & 0xFF) * (levels - 1) + 127) / 255;
  };
  return static_cast<std::uint8_t>(
      (level(color >> 16, kReds) * kGreens + level(color >> 8, kGreens)) * kBlues + level(color, kBlues));
}

std::uint32_t evenColor(unsigned number) {
  const auto channel = [](unsigned level, unsigned levels) { return level * 255 / (levels - 1); };
  return channel(number / kBlues / kGreens, kReds) << 16 | channel(number / kBlues % kGreens, kGreens) << 8 |
         channel(number % kBlues, kBlues);
}

Indexed evenly(const ColorImage& image) {
  Indexed out;
  for (unsigned i = 0; i < kReds * kGreens * kBlues; ++i) out.palette.push_back(evenColor(i));
  out.numbers.reserve(image.pixels.size());
  for (const std::uint32_t color : image.pixels) out.numbers.push_back(evenNumber(color));
  return out;
}

Indexed indexed(const ColorImage& image) {
  Indexed out;
  std::unordered_map<std::uint32_t, std::uint8_t> known;
  std::uint32_t last = ~image.pixels[0];
  std::uint8_t number = 0;
  out.numbers.reserve(image.pixels.size());
  for (const std::uint32_t color : image.pixels) {
    if (color != last) {
      const auto [place, isNew] = known.try_emplace(color, static_cast<std::uint8_t>(out.palette.size()));
      if (isNew && out.palette.size() == 256) return evenly(image);
      if (isNew) out.palette.push_back(color);
      last = color, number = place->second;
    }
    out.numbers.push_back(number);
  }
  return out;
}

void addNumber(std::string& bytes, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(value >> shift);
}

void addChunk(std::string& png, std::string_view type, std::string_view data) {
  addNumber(png, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = png.size();
  png.append(type).append(data);
  const auto* from = reinterpret_cast<const Bytef*>(png.data() + start);
  addNumber(png, static_cast<std::uint32_t>(crc32(0, from, static_cast<uInt>(png.size() - start))));
}

// With as many bits to a pixel as the palette needs, each row behind a zero for "no filter".
std::string rowsOf(const ColorImage& image, const Indexed& colors, int bits) {
  std::string rows;
  std::size_t at = 0;
  for (int y = 0; y < image.height; ++y) {
    rows += '\0';
    for (int x = 0; x < image.width;) {
      unsigned byte = 0;
      for (int shift = 8 - bits; shift >= 0 && x < image.width; shift -= bits, ++x)
        byte |= static_cast<unsigned>(colors.numbers[at++]) << shift;
      rows += static_cast<char>(byte);
    }
  }
  return rows;
}

std::string deflated(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string packed(size, '\0');
  const int status =
      compress2(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
                static_cast<uLong>(bytes.size()), Z_DEFAULT_COMPRESSION);
  if (status != Z_OK) throw std::bad_alloc();  // there is no other reason with room for the bound
  packed.resize(size);
  return packed;
}

}  // namespace

std::string indexedPng(const ColorImage& image) {
  const Indexed colors = indexed(image);
  const std::size_t count = colors.palette.size();
  const int bits = count <= 2 ? 1 : count <= 4 ? 2 : count <= 16 ? 4 : 8;
  std::string header, palette;
  addNumber(header, static_cast<std::uint32_t>(image.width));
  addNumber(header, static_cast<std::uint32_t>(image.height));
  header += static_cast<char>(bits);
  header += std::string("\3\0\0\0", 4);  // indexed, the only compression, the only filters, not interlaced
  for (const std::uint32_t color : colors.palette)
    for (const int shift : {16, 8, 0}) palette += static_cast<char>(color >> shift);
  std::string png = "\x89PNG\r\n\x1A\n";
  addChunk(png, "IHDR", header);
  addChunk(png, "PLTE", palette);
  addChunk(png, "IDAT", deflated(rowsOf(image, colors, bits)));
  addChunk(png, "IEND", {});
  return png;
}

}  // namespace kivcli
