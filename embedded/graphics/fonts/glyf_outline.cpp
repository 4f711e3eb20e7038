#include "embedded/graphics/fonts/glyf_outline.h"

#include <vector>

namespace cad {
namespace {

constexpr std::size_t kHead = 10;  // the number of contours, and the box
constexpr int kDeepest = 6;        // glyphs made of glyphs
constexpr std::size_t kMostPieces = 20000;

struct Place {
  double xx = 1, xy = 0, yx = 0, yy = 1, x0 = 0, y0 = 0;
  Place of(const Place& inner) const {
    return {xx * inner.xx + yx * inner.xy,      xy * inner.xx + yy * inner.xy,
            xx * inner.yx + yx * inner.yy,      xy * inner.yx + yy * inner.yy,
            xx * inner.x0 + yx * inner.y0 + x0, xy * inner.x0 + yy * inner.y0 + y0};
  }
};

struct OutlinePoint {
  double x = 0, y = 0;
  bool onCurve = true;
};

OutlinePoint middle(const OutlinePoint& a, const OutlinePoint& b) {
  return {(a.x + b.x) / 2, (a.y + b.y) / 2, true};
}

class GlyfReader {
 public:
  explicit GlyfReader(const GlyfTables& tables) : tables_(tables) {}

  GlyphPath read(std::size_t which) {
    add(which, {}, 0);
    return std::move(path_);
  }

 private:
  using Kind = GlyphPath::Kind;

  void add(std::size_t which, const Place& place, int depth) {
    const FontBytes glyph = tables_.glyph(which);
    if (glyph.size() < kHead || depth > kDeepest || path_.pieces.size() > kMostPieces) return;
    const int contours = glyph.i16(0);
    if (contours >= 0) {
      addContours(glyph, static_cast<std::size_t>(contours), place);
    } else {
      addParts(glyph, place, depth);
    }
  }

  // The last point of each contour, instructions, a flag for each point (or for several), the steps in x,
  // those in y.
  void addContours(const FontBytes& glyph, std::size_t contours, const Place& place) {
    if (contours == 0) return;
    const std::size_t ends = kHead, count = glyph.u16(ends + 2 * (contours - 1)) + 1;
    std::size_t at = ends + 2 * contours;
    at += 2 + glyph.u16(at);
    std::vector<int> flags;
    while (flags.size() < count && at < glyph.size()) {
      constexpr int kRepeat = 8;
      const int flag = glyph.u8(at++);
      const std::size_t times =
          (flag & kRepeat) != 0 ? std::size_t{1} + static_cast<std::size_t>(glyph.u8(at++)) : 1;
      flags.insert(flags.end(), times, flag);
    }
    if (flags.size() < count) return;
    std::vector<OutlinePoint> points(count);
    double value = 0;
    for (std::size_t i = 0; i < count; ++i) points[i].x = value += step(glyph, at, flags[i], 2, 16);
    value = 0;
    for (std::size_t i = 0; i < count; ++i) points[i].y = value += step(glyph, at, flags[i], 4, 32);
    for (std::size_t i = 0; i < count; ++i)
      points[i] = {place.xx * points[i].x + place.yx * points[i].y + place.x0,
                   place.xy * points[i].x + place.yy * points[i].y + place.y0, (flags[i] & 1) != 0};
    std::size_t first = 0;
    for (std::size_t contour = 0; contour < contours; ++contour) {
      const std::size_t end = glyph.u16(ends + 2 * contour) + 1;
      if (end > count || end <= first) return;
      addContour(std::vector<OutlinePoint>(points.begin() + static_cast<std::ptrdiff_t>(first),
                                           points.begin() + static_cast<std::ptrdiff_t>(end)));
      first = end;
    }
  }

  // One byte whose sign is a flag, or two, or none where the coordinate is as before.
  static double step(const FontBytes& glyph, std::size_t& at, int flags, int isShort, int isSame) {
    if ((flags & isShort) != 0) {
      const int value = glyph.u8(at++);
      return (flags & isSame) != 0 ? value : -value;
    }
    if ((flags & isSame) != 0) return 0;
    at += 2;
    return glyph.i16(at - 2);
  }

  // Between two controls the curve passes through their middle.
  void addContour(const std::vector<OutlinePoint>& points) {
    const std::size_t count = points.size();
    if (count < 2) return;
    std::size_t first = 0;
    while (first < count && !points[first].onCurve) ++first;
    const OutlinePoint start = first < count ? points[first] : middle(points[0], points[count - 1]);
    if (first == count) first = count - 1;
    path_.pieces.push_back({Kind::kMove, start.x, start.y});
    for (std::size_t i = 1; i <= count; ++i) {
      const OutlinePoint& point = points[(first + i) % count];
      if (point.onCurve) {
        path_.pieces.push_back({Kind::kLine, point.x, point.y});
        continue;
      }
      const OutlinePoint& next = points[(first + i + 1) % count];
      OutlinePoint end = next.onCurve ? next : middle(point, next);
      if (i == count) end = start;
      path_.pieces.push_back({Kind::kQuadratic, end.x, end.y, point.x, point.y});
      if (next.onCurve) ++i;
    }
  }

  void addParts(const FontBytes& glyph, const Place& place, int depth) {
    constexpr std::size_t kWords = 1, kOffsets = 2, kScale = 8, kMore = 32, kTwoScales = 64, kMatrix = 128;
    std::size_t at = kHead, flags = kMore;
    const auto share = [&] {  // 2.14 fixed point
      at += 2;
      return glyph.i16(at - 2) / 16384.0;
    };
    while ((flags & kMore) != 0 && at + 4 <= glyph.size()) {
      flags = glyph.u16(at);
      const std::size_t part = glyph.u16(at + 2);
      at += 4;
      const bool words = (flags & kWords) != 0;
      Place own;
      if ((flags & kOffsets) != 0) {
        own.x0 = words ? glyph.i16(at) : static_cast<signed char>(glyph.u8(at));
        own.y0 = words ? glyph.i16(at + 2) : static_cast<signed char>(glyph.u8(at + 1));
      }
      at += words ? 4 : 2;
      if ((flags & kScale) != 0) {
        own.xx = own.yy = share();
      } else if ((flags & kTwoScales) != 0) {
        own.xx = share();
        own.yy = share();
      } else if ((flags & kMatrix) != 0) {
        own.xx = share();
        own.xy = share();
        own.yx = share();
        own.yy = share();
      }
      add(part, place.of(own), depth + 1);
      if (++parts_ > kMostParts) return;
    }
  }

  static constexpr int kMostParts = 256;
  const GlyfTables& tables_;
  GlyphPath path_;
  int parts_ = 0;
};

}  // namespace

FontBytes GlyfTables::glyph(std::size_t which) const {
  if (which == 0 || which >= glyphCount) return {};
  const std::size_t from = hasLongPlaces ? places.u32(4 * which) : 2 * places.u16(2 * which);
  const std::size_t to = hasLongPlaces ? places.u32(4 * which + 4) : 2 * places.u16(2 * which + 2);
  return to > from && outlines.size() >= to ? outlines.from(from, to - from) : FontBytes();
}

GlyphPath glyfPath(const GlyfTables& tables, std::size_t which) { return GlyfReader(tables).read(which); }

}  // namespace cad
