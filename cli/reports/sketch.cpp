#include "cli/reports/sketch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace kivcli {
namespace {

constexpr std::uint32_t kNothing = 0xFF000000;  // of a sheet
constexpr double kThin = 3;    // pixels of the sketch, up to which corners and ends do not show
constexpr int kCapPoints = 6;  // of half a circle

std::uint32_t mixed(std::uint32_t below, std::uint32_t above, unsigned opacity) {
  std::uint32_t color = 0;
  for (const int shift : {16, 8, 0}) {
    const unsigned one = below >> shift & 0xFF, other = above >> shift & 0xFF;
    color |= (one * (255 - opacity) + other * opacity + 127) / 255 << shift;
  }
  return color;
}

int rowOf(double y, int height) {
  return static_cast<int>(std::clamp(std::ceil(y - 0.5), 0.0, double(height)));
}

// To each pixel that is set those up to `radius` away in its row, and to these those in their column.
void widen(std::vector<std::uint8_t>& set, int width, int radius) {
  const auto size = static_cast<std::ptrdiff_t>(set.size());
  std::vector<std::uint8_t> wide(set.size(), 0);
  const auto alongRow = [&](std::ptrdiff_t start, int way) {
    int since = radius + 1;  // the last one that is set
    for (std::ptrdiff_t at = start, end = start + std::ptrdiff_t{way} * width; at != end; at += way) {
      since = set[at] != 0 ? 0 : since + 1;
      if (since <= radius) wide[at] = 1;
    }
  };
  for (std::ptrdiff_t row = 0; row < size; row += width) {
    alongRow(row, 1);
    alongRow(row + width - 1, -1);
  }
  set = wide;
  const auto alongColumns = [&](std::ptrdiff_t first, std::ptrdiff_t way) {
    std::vector<int> since(static_cast<std::size_t>(width), radius + 1);
    for (std::ptrdiff_t row = first; row >= 0 && row < size; row += way) {
      const std::uint8_t* const from = wide.data() + row;
      std::uint8_t* const to = set.data() + row;
      for (std::ptrdiff_t x = 0; x < width; ++x) {
        since[x] = from[x] != 0 ? 0 : since[x] + 1;
        to[x] |= since[x] <= radius ? 1 : 0;
      }
    }
  };
  alongColumns(0, width);
  alongColumns(size - width, -width);
}

}  // namespace

Sketch::Sketch(const cad::Picture& picture)
    : picture_(picture),
      width_(picture.width * kFineness),
      height_(picture.height * kFineness),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_), picture.background) {}

void Sketch::paint(const std::vector<cad::PictureShape>& shapes) {
  for (const cad::PictureShape& shape : shapes) paint(shape);
}

void Sketch::paintSheet(const std::vector<cad::PictureShape>& shapes, std::uint8_t opacity) {
  if (shapes.empty()) return;
  sheet_.assign(pixels_.size(), kNothing);
  to_ = &layer_;
  for (auto shape = shapes.begin(); shape != shapes.end();) {
    const std::uint32_t color = shape->color;
    double width = 0;
    layer_.assign(pixels_.size(), kNothing);
    for (; shape != shapes.end() && shape->color == color; ++shape) {
      cad::PictureShape part = *shape;
      if (width == 0) width = static_cast<double>(part.width) * kFineness;
      part.width = std::min(part.width, 1.0F / kFineness);
      paint(part);
    }
    const auto isPainted = [](std::uint32_t pixel) -> std::uint8_t { return pixel == kNothing ? 0 : 1; };
    std::vector<std::uint8_t> set(layer_.size());
    std::ranges::transform(layer_, set.begin(), isPainted);
    widen(set, width_, static_cast<int>(std::lround(width / 2)));
    for (std::size_t i = 0; i < sheet_.size(); ++i)
      if (set[i] != 0) sheet_[i] = color;
  }
  to_ = &pixels_;
  for (std::size_t i = 0; i < pixels_.size(); ++i)
    if (sheet_[i] != kNothing) pixels_[i] = mixed(pixels_[i], sheet_[i], opacity);
}

void Sketch::paint(const cad::PictureShape& shape) {
  color_ = shape.color, opacity_ = shape.opacity;
  takeClip(shape.clip);
  if (shape.width == 0) {
    eachSpan(shape, [this](int row, int from, int to) { paintSpan(row, from, to); });
    return;
  }
  for (const cad::PictureRun& run : picture_.runsOf(shape)) {
    takePoints(run);
    stroke(static_cast<double>(shape.width) * kFineness, run.closed);
  }
}

void Sketch::takePoints(const cad::PictureRun& run) {
  points_.clear();
  for (const cad::PicturePoint& at : picture_.pointsOf(run))
    if (std::isfinite(at.x) && std::isfinite(at.y))
      points_.push_back({static_cast<double>(at.x) * kFineness, static_cast<double>(at.y) * kFineness});
}

// --- Areas

template <class Paint>
void Sketch::eachSpan(const cad::PictureShape& area, Paint paint) {
  crossings_.clear();
  for (const cad::PictureRun& run : picture_.runsOf(area)) {
    takePoints(run);
    for (std::size_t i = 0; i < points_.size(); ++i) {
      Point from = points_[i], to = points_[(i + 1) % points_.size()];
      const int direction = from.y < to.y ? 1 : -1;
      if (direction < 0) std::swap(from, to);
      const double slope = (to.x - from.x) / (to.y - from.y);  // of a level edge without use
      for (int row = rowOf(from.y, height_), end = rowOf(to.y, height_); row < end; ++row)
        crossings_.push_back({row, from.x + (row + 0.5 - from.y) * slope, direction});
    }
  }
  std::ranges::sort(crossings_, {}, [](const Crossing& at) { return std::pair(at.row, at.x); });
  int winding = 0;
  for (std::size_t i = 0; i + 1 < crossings_.size(); ++i) {
    const Crossing &at = crossings_[i], &next = crossings_[i + 1];
    winding += area.evenOdd ? 1 : at.direction;
    if (at.row != next.row) winding = 0;
    if (area.evenOdd ? winding % 2 == 0 : winding == 0) continue;
    paint(at.row, rowOf(at.x, width_), rowOf(next.x, width_));
  }
}

void Sketch::takeClip(std::uint32_t clip) {
  if (clip == clip_) return;
  clip_ = clip;
  if (clip == cad::kNoClip) return;
  isClear_.assign(pixels_.size(), 0);
  cad::PictureShape area = picture_.clips[clip];
  area.evenOdd = true;
  eachSpan(area, [this](int row, int from, int to) {
    std::fill(isClear_.begin() + std::ptrdiff_t{row} * width_ + from,
              isClear_.begin() + std::ptrdiff_t{row} * width_ + std::max(from, to), std::uint8_t{1});
  });
}

void Sketch::paintSpan(int row, int from, int to) {
  if (row < 0 || row >= height_) return;
  from = std::max(from, 0), to = std::min(to, width_);
  if (from >= to) return;
  const std::ptrdiff_t start = std::ptrdiff_t{row} * width_;
  std::uint32_t* const pixels = to_->data() + start;
  if (clip_ == cad::kNoClip && opacity_ == 255) {
    std::fill(pixels + from, pixels + to, color_);
    return;
  }
  for (int x = from; x < to; ++x) {
    if (clip_ != cad::kNoClip && isClear_[static_cast<std::size_t>(start + x)] == 0) continue;
    pixels[x] = opacity_ == 255 || pixels[x] == kNothing ? color_ : mixed(pixels[x], color_, opacity_);
  }
}

// --- Lines

void Sketch::stroke(double width, bool closed) {
  if (points_.empty()) return;
  if (closed || points_.size() == 1) points_.push_back(points_.front());
  for (std::size_t i = 0; i + 1 < points_.size(); ++i) {
    Point from = points_[i], to = points_[i + 1];
    if (!cut(from, to, width + 1)) continue;
    if (width <= kThin) {
      thinLine(from, to, std::max(1, static_cast<int>(std::lround(width))));
    } else {
      thickLine(from, to, width / 2);
    }
  }
}

// To what lies in the sketch and `margin` around it. False: nothing.
bool Sketch::cut(Point& from, Point& to, double margin) const {
  const double ways[] = {from.x - to.x, to.x - from.x, from.y - to.y, to.y - from.y};
  const double rooms[] = {from.x + margin, width_ + margin - from.x, from.y + margin,
                          height_ + margin - from.y};
  double first = 0, last = 1;
  for (int i = 0; i < 4; ++i) {
    if (ways[i] == 0 && rooms[i] < 0) return false;
    if (ways[i] < 0) first = std::max(first, rooms[i] / ways[i]);
    if (ways[i] > 0) last = std::min(last, rooms[i] / ways[i]);
  }
  if (first > last) return false;
  const Point start = from, way = {to.x - from.x, to.y - from.y};
  from = {start.x + first * way.x, start.y + first * way.y};
  to = {start.x + last * way.x, start.y + last * way.y};
  return true;
}

void Sketch::thinLine(Point from, Point to, int width) {
  constexpr double kOne = 65536;  // steps are in parts of a pixel
  const double x = to.x - from.x, y = to.y - from.y;
  const bool isSteep = std::abs(y) > std::abs(x);
  const auto steps = static_cast<int>(std::ceil(std::max(std::abs(x), std::abs(y))));
  const double before = (width - 1) / 2.0;
  const auto fixed = [&](double value) { return static_cast<std::int64_t>(std::floor(value * kOne)); };
  std::int64_t atX = fixed(from.x - (isSteep || steps == 0 ? before : 0)),
               atY = fixed(from.y - (isSteep ? 0 : before));
  const std::int64_t wayX = steps == 0 ? 0 : fixed(x / steps), wayY = steps == 0 ? 0 : fixed(y / steps);
  const int across = isSteep || steps == 0 ? width : 1, down = isSteep ? 1 : width;
  const bool isPlain = clip_ == cad::kNoClip && opacity_ == 255;
  for (int i = 0; i <= steps; ++i, atX += wayX, atY += wayY) {
    const auto column = static_cast<int>(atX >> 16), row = static_cast<int>(atY >> 16);
    if (isPlain && column >= 0 && row >= 0 && column + across <= width_ && row + down <= height_) {
      std::uint32_t* pixel = to_->data() + std::ptrdiff_t{row} * width_ + column;
      for (int more = 0; more < down; ++more, pixel += width_)
        for (int k = 0; k < across; ++k) pixel[k] = color_;
    } else {
      for (int more = 0; more < down; ++more) paintSpan(row + more, column, column + across);
    }
  }
}

// With round ends: the rows of the polygon around it.
void Sketch::thickLine(Point from, Point to, double radius) {
  const double along = std::atan2(to.y - from.y, to.x - from.x);
  std::array<Point, 2 * (kCapPoints + 1)> outline;
  for (int i = 0; i <= kCapPoints; ++i) {
    const double angle = along + std::numbers::pi * (0.5 + double(i) / kCapPoints);
    const Point way = {radius * std::cos(angle), radius * std::sin(angle)};
    outline[static_cast<std::size_t>(i)] = {from.x + way.x, from.y + way.y};
    outline[static_cast<std::size_t>(i + kCapPoints + 1)] = {to.x - way.x, to.y - way.y};
  }
  const auto [highest, lowest] = std::ranges::minmax(outline, {}, &Point::y);
  const int top = rowOf(highest.y, height_), bottom = rowOf(lowest.y, height_);
  rows_.assign(static_cast<std::size_t>(std::max(0, bottom - top)), {width_, 0});
  for (std::size_t i = 0; i < outline.size(); ++i) {
    Point one = outline[i], other = outline[(i + 1) % outline.size()];
    if (one.y > other.y) std::swap(one, other);
    const double slope = (other.x - one.x) / (other.y - one.y);
    for (int row = rowOf(one.y, height_), end = rowOf(other.y, height_); row < end; ++row) {
      const int x = rowOf(one.x + (row + 0.5 - one.y) * slope, width_);
      auto& [left, right] = rows_[static_cast<std::size_t>(row - top)];
      left = std::min(left, x), right = std::max(right, x);
    }
  }
  for (std::size_t i = 0; i < rows_.size(); ++i)
    paintSpan(top + static_cast<int>(i), rows_[i].first, rows_[i].second);
}

// --- The picture

ColorImage Sketch::shown(int step) const {
  ColorImage image{std::max(1, width_ / step), std::max(1, height_ / step), {}};
  image.pixels.reserve(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  const auto count = static_cast<unsigned>(step * step);
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      unsigned red = count / 2, green = red, blue = red;
      for (int row = 0; row < step; ++row) {
        const std::uint32_t* from = pixels_.data() + std::ptrdiff_t{y * step + row} * width_ + x * step;
        for (int column = 0; column < step; ++column) {
          red += from[column] >> 16 & 0xFF, green += from[column] >> 8 & 0xFF, blue += from[column] & 0xFF;
        }
      }
      image.pixels.push_back(red / count << 16 | green / count << 8 | blue / count);
    }
  }
  return image;
}

}  // namespace kivcli
