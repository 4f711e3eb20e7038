#include "cadhost/canvas.h"

#include <algorithm>
#include <cmath>

namespace cadhost {
namespace {

constexpr int kDash = 6;  // pixels of a dash and of a gap

struct Edge {
  double x;         // where it crosses the middle of row `top`
  double slope;     // how far x moves from a row to the next
  int top, bottom;  // rows whose middle it crosses; bottom is outside
};

// Rows of the picture whose middle the edge crosses; none for a level one.
bool makeEdge(Pixel a, Pixel b, PixelRect clip, Edge& edge) {
  if (a.y > b.y) std::swap(a, b);
  const double first = std::clamp(std::ceil(a.y - 0.5), double(clip.top), double(clip.bottom));
  const double last = std::clamp(std::ceil(b.y - 0.5), double(clip.top), double(clip.bottom));
  edge.top = static_cast<int>(first);
  edge.bottom = static_cast<int>(last);
  if (edge.top >= edge.bottom) return false;
  edge.slope = (b.x - a.x) / (b.y - a.y);
  edge.x = a.x + (first + 0.5 - a.y) * edge.slope;
  return true;
}

// A number that is no pixel of any screen would overflow an int; the clip cuts it off anyway.
int toColumn(double x, PixelRect clip) {
  return static_cast<int>(std::clamp(std::ceil(x - 0.5), double(clip.left), double(clip.right)));
}

}  // namespace

Canvas::Canvas(std::uint32_t* pixels, int width, int height)
    : pixels_(pixels), width_(width), height_(height), clip_(whole()) {}

void Canvas::setClip(PixelRect clip) {
  clip_ = {std::max(clip.left, 0), std::max(clip.top, 0), std::min(clip.right, width_),
           std::min(clip.bottom, height_)};
}

void Canvas::clear(Rgb color) {
  if (clip_.empty()) return;
  for (int y = clip_.top; y < clip_.bottom; ++y) {
    std::uint32_t* row = pixels_ + static_cast<std::size_t>(y) * width_;
    std::fill(row + clip_.left, row + clip_.right, color);
  }
}

void Canvas::dot(Pixel at, Rgb color) {
  // Compared before the conversion: what is far outside is no int. False for what is no number.
  if (!(at.x >= clip_.left && at.x < clip_.right && at.y >= clip_.top && at.y < clip_.bottom)) return;
  put(static_cast<int>(at.x), static_cast<int>(at.y), color);
}

// Liang and Barsky: the part of the line within the clip.
bool Canvas::clipLine(Pixel& from, Pixel& to) const {
  const double dx = to.x - from.x, dy = to.y - from.y;
  if (clip_.empty() || !std::isfinite(dx) || !std::isfinite(dy)) return false;
  double enter = 0, leave = 1;
  const auto cut = [&](double move, double room) {
    if (move == 0) return room >= 0;
    const double at = room / move;
    if (move < 0)
      enter = std::max(enter, at);
    else
      leave = std::min(leave, at);
    return enter <= leave;
  };
  // The last pixel's far edge is outside; half a pixel is enough to stay within it after rounding down.
  const double right = clip_.right - 0.5, bottom = clip_.bottom - 0.5;
  if (!cut(-dx, from.x - clip_.left) || !cut(dx, right - from.x) || !cut(-dy, from.y - clip_.top) ||
      !cut(dy, bottom - from.y))
    return false;
  const Pixel start = from;
  from = {start.x + enter * dx, start.y + enter * dy};
  to = {start.x + leave * dx, start.y + leave * dy};
  return true;
}

template <class Put>
void Canvas::walk(Pixel from, Pixel to, Put put) {
  if (!clipLine(from, to)) return;
  int x = static_cast<int>(from.x), y = static_cast<int>(from.y);
  const int endX = static_cast<int>(to.x), endY = static_cast<int>(to.y);
  const int dx = std::abs(endX - x), dy = -std::abs(endY - y);
  const int stepX = x < endX ? 1 : -1, stepY = y < endY ? 1 : -1;
  for (int error = dx + dy;;) {
    if (inClip(x, y)) put(x, y);
    if (x == endX && y == endY) return;
    const int twice = 2 * error;
    if (twice >= dy) error += dy, x += stepX;
    if (twice <= dx) error += dx, y += stepY;
  }
}

void Canvas::line(Pixel from, Pixel to, Rgb color) {
  walk(from, to, [&](int x, int y) { put(x, y, color); });
}

void Canvas::dashedLine(Pixel from, Pixel to, Rgb dash, Rgb gap) {
  const bool flat = std::abs(to.x - from.x) > std::abs(to.y - from.y);
  // By the place on the screen, not by the length: the short pieces of an arc are dashed too.
  walk(from, to, [&](int x, int y) {
    const Rgb color = (x + y) / kDash % 2 == 0 ? dash : gap;
    put(x, y, color);
    const int besideX = flat ? x : x + 1, besideY = flat ? y + 1 : y;
    if (inClip(besideX, besideY)) put(besideX, besideY, color);
  });
}

void Canvas::fillRow(int y, std::vector<double>& crossings, Rgb color) {
  std::sort(crossings.begin(), crossings.end());
  for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
    const int left = toColumn(crossings[i], clip_), right = toColumn(crossings[i + 1], clip_);
    for (int x = left; x < right; ++x) put(x, y, color);
  }
}

void Canvas::fill(std::span<const Pixel> points, std::span<const std::size_t> ends, Rgb color) {
  if (clip_.empty()) return;
  std::vector<Edge> edges;
  std::size_t begin = 0;
  for (const std::size_t end : ends) {
    for (std::size_t i = begin; i < end; ++i) {
      const Pixel a = points[i], b = points[i + 1 < end ? i + 1 : begin];
      Edge edge{};
      if (std::isfinite(a.x + a.y + b.x + b.y) && makeEdge(a, b, clip_, edge)) edges.push_back(edge);
    }
    begin = end;
  }
  std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.top < b.top; });

  std::vector<Edge> active;
  std::vector<double> crossings;
  std::size_t next = 0;
  for (int y = clip_.top; y < clip_.bottom; ++y) {
    while (next < edges.size() && edges[next].top == y) active.push_back(edges[next++]);
    if (active.empty() && next == edges.size()) return;
    std::erase_if(active, [&](const Edge& edge) { return edge.bottom <= y; });
    crossings.clear();
    for (Edge& edge : active) {
      crossings.push_back(edge.x);
      edge.x += edge.slope;
    }
    fillRow(y, crossings, color);
  }
}

}  // namespace cadhost
