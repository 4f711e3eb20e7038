#include "embedded/graphics/pictures/glyph_painter.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "embedded/graphics/fonts/characters.h"

namespace cad {
namespace {

constexpr double kTolerance = 0.06;  // pixels, of the straight pieces of a curve

// The usual fonts of systems, those with Japanese characters first.
constexpr const wchar_t* kStandIns[] = {L"ipagp.ttf",
                                        L"ipag.ttf",
                                        L"msgothic.ttc",
                                        L"NotoSansCJK-Regular.ttc",
                                        L"NotoSansCJKjp-Regular.otf",
                                        L"NotoSansJP-Regular.otf",
                                        L"TakaoPGothic.ttf",
                                        L"VL-PGothic-Regular.ttf",
                                        L"fonts-japanese-gothic.ttf",
                                        L"LiberationSans-Regular.ttf",
                                        L"DejaVuSans.ttf",
                                        L"arial.ttf"};
constexpr std::size_t kMostStandIns = 3;

void eachCharacter(std::wstring_view text, const std::function<void(char32_t)>& take) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto c = static_cast<char32_t>(text[i]);
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size())
      c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
    take(c);
  }
}

PixelPoint at(const TextPlace& place, double x, double y) {
  return {place.origin.x + x * place.along.x + y * place.up.x,
          place.origin.y + x * place.along.y + y * place.up.y};
}

// How far the middle control pulls a curve away from the straight line.
double bend(PixelPoint a, PixelPoint b, PixelPoint c) {
  return std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
}

int piecesFor(double bending) {
  return std::clamp(static_cast<int>(std::ceil(std::sqrt(bending / (4 * kTolerance)))), 1, 64);
}

// A quarter turn about the middle of a full-width character's cell.
TextPlace onItsSide(const TextPlace& place) {
  constexpr double kMiddle = 0.5;
  const PixelPoint middle = at(place, kMiddle, kMiddle);
  TextPlace turned{{}, place.up, {-place.along.x, -place.along.y}};
  turned.origin = {middle.x - kMiddle * (turned.along.x + turned.up.x),
                   middle.y - kMiddle * (turned.along.y + turned.up.y)};
  return turned;
}

}  // namespace

double runOf(std::wstring_view text, const FontMetrics& font) {
  double run = 0;
  eachCharacter(text, [&](char32_t c) { run += font.glyph(c).advance; });
  return run;
}

const std::vector<std::shared_ptr<const FontMetrics>>& GlyphPainter::standIns() {
  if (lookedFor_) return standIns_;
  lookedFor_ = true;
  for (const wchar_t* file : kStandIns) {
    if (standIns_.size() >= kMostStandIns) break;
    auto font = fonts_.font({.file = file, .typeface = L""});
    if (font.get() != &outlineAverages() && font.get() != &shapeAverages()) standIns_.push_back(font);
  }
  return standIns_;
}

const GlyphPainter::Drawn& GlyphPainter::drawn(char32_t c, const FontMetrics& font) {
  const auto [found, isNew] = glyphs_.try_emplace({&font, c});
  Drawn& drawn = found->second;
  if (!isNew) return drawn;
  drawn.path = font.path(c);
  const Glyph glyph = font.glyph(c);
  if (!drawn.path.pieces.empty() || !glyph.inked) return drawn;
  for (const auto& other : standIns()) {
    drawn.path = other->path(c);
    if (drawn.path.pieces.empty()) continue;
    const double advance = other->glyph(c).advance;
    if (advance > 0) drawn.stretch = glyph.advance / advance;
    break;
  }
  return drawn;
}

bool GlyphPainter::paint(std::wstring_view text, const FontMetrics& font, bool turned, const TextPlace& place,
                         const Brush& brush) {
  bool whole = true;
  double run = 0;
  eachCharacter(text, [&](char32_t c) {
    const Drawn& glyph = drawn(c, font);
    TextPlace own{at(place, run, 0), place.along, place.up};
    if (turned && isFullWidth(c)) own = onItsSide(own);
    own.along = {own.along.x * glyph.stretch, own.along.y * glyph.stretch};
    const Glyph facts = font.glyph(c);
    run += facts.advance;
    if (!glyph.path.pieces.empty()) paint(glyph.path, own, brush);
    whole = whole && (!facts.inked || !glyph.path.pieces.empty());
  });
  return whole;
}

void GlyphPainter::paint(const GlyphPath& path, const TextPlace& place, const Brush& brush) {
  using Kind = GlyphPath::Kind;
  Brush own = brush;
  if (!path.strokes) own.width = 0;
  own.evenOdd = path.strokes;
  paths_.begin(own);
  contour_.clear();
  const auto end = [&] {
    if (contour_.size() > 1 || path.strokes) paths_.add(contour_, !path.strokes);
    contour_.clear();
  };
  for (const GlyphPath::Piece& piece : path.pieces) {
    if (piece.kind == Kind::kMove) end();
    const PixelPoint to = at(place, piece.x, piece.y);
    if (piece.kind == Kind::kMove || piece.kind == Kind::kLine || contour_.empty()) {
      contour_.push_back(to);
      continue;
    }
    const PixelPoint from = contour_.back(), first = at(place, piece.x1, piece.y1);
    const PixelPoint second = piece.kind == Kind::kCubic ? at(place, piece.x2, piece.y2) : first;
    const int pieces = piece.kind == Kind::kCubic
                           ? piecesFor(3 * std::max(bend(from, first, second), bend(first, second, to)))
                           : piecesFor(bend(from, first, to));
    for (int i = 1; i <= pieces; ++i) {
      const double t = static_cast<double>(i) / pieces, u = 1 - t;
      const auto mix = [&](double a, double b, double c, double d) {
        if (piece.kind == Kind::kQuadratic) return u * u * a + 2 * u * t * b + t * t * d;
        return u * u * u * a + 3 * u * u * t * b + 3 * u * t * t * c + t * t * t * d;
      };
      contour_.push_back({mix(from.x, first.x, second.x, to.x), mix(from.y, first.y, second.y, to.y)});
    }
  }
  end();
}

}  // namespace cad
