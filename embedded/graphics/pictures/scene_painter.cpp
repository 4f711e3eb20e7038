#include "embedded/graphics/pictures/scene_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "embedded/graphics/pictures/hatch_lines.h"

namespace cad {
namespace {

constexpr double kArcTolerance = 0.08;  // pixels
constexpr double kLargestDot = 0.5;     // pixels
constexpr double kLeastReadable = 1.8;  // pixels of a capital's height; smaller texts are a line
constexpr double kLineOfText = 0.6;     // the width of that line, of the height
constexpr std::uint8_t kFaint = 110;    // its opacity, and that of a hatch too dense for lines
constexpr std::size_t kMostPieces = 2'000'000;

PixelPoint shifted(PixelPoint at, PixelPoint along, double x, PixelPoint up, double y) {
  return {at.x + along.x * x + up.x * y, at.y + along.y * x + up.y * y};
}

}  // namespace

ScenePainter::ScenePainter(const Drawing& drawing, const Scene& scene, FontCatalogue& fonts,
                           const PictureScale& scale, Picture& picture)
    : drawing_(drawing),
      scene_(scene),
      fonts_(fonts),
      scale_(scale),
      picture_(picture),
      paths_(picture),
      glyphs_(paths_, fonts),
      styles_(drawing, fonts) {}

Brush ScenePainter::brushOf(const SceneItem& item) const {
  const SceneLook& look = scene_.looks[item.look];
  Brush brush;
  brush.color = look.trueColor >= 0 ? static_cast<Rgb>(look.trueColor) : paletteColor(item.color);
  // Colour 7 is the one that shows on the background.
  constexpr Rgb kWhite = 0xFFFFFF;
  const auto brightness = [](Rgb rgb) { return (rgb >> 16 & 0xFF) + (rgb >> 8 & 0xFF) + (rgb & 0xFF); };
  if (look.trueColor < 0 && brush.color == kWhite && brightness(picture_.background) > 3 * 127)
    brush.color = 0;
  brush.opacity = look.opacity;
  brush.clip = item.clip;
  const double weight = look.lineWeight / 100.0 * scale_.pixelsPerMillimetre;
  const double own = static_cast<double>(item.width) * scale_.view.scale;
  brush.width = static_cast<float>(std::max({scale_.hairline, weight, own}));
  return brush;
}

std::vector<PixelPoint> ScenePainter::pixelsOf(const SceneLoop& loop) const {
  std::span<const ScenePoint> points = scene_.pointsOf(loop);
  std::vector<ScenePoint> flat;
  const bool bent = std::ranges::any_of(points, [](const ScenePoint& at) { return at.bulge != 0; });
  if (bent) {
    flatten(points, loop.closed, kArcTolerance / scale_.view.scale, flat);
    points = flat;
  }
  std::vector<PixelPoint> pixels;
  pixels.reserve(points.size() + 1);
  for (const ScenePoint& at : points) pixels.push_back(scale_.view.point(at.x, at.y));
  if (loop.closed && !bent && !points.empty()) pixels.push_back(pixels.front());
  return pixels;
}

void ScenePainter::addClip(const SceneItem& area, PictureShape& clip) {
  std::vector<PictureShape> shapes;
  paths_.into(shapes);
  paths_.begin({});
  for (const SceneLoop& loop : scene_.loopsOf(area)) paths_.add(pixelsOf(loop), true);
  clip = shapes.back();
  paths_.into(picture_.shapes);
}

void ScenePainter::paint(const SceneItem& item) {
  const Brush brush = brushOf(item);
  const double size = std::max(item.box.right - item.box.left, item.box.top - item.box.bottom);
  if (size * scale_.view.scale < kLargestDot) {
    paths_.begin(brush);
    paths_.addDot(scale_.view.point(item.box.left, item.box.top));
    return;
  }
  switch (item.kind) {
    case SceneItemKind::kText:
      for (const SceneText& text : scene_.textsOf(item)) paintText(text, brush);
      return;
    case SceneItemKind::kFill:
      paintFill(item, brush);
      return;
    case SceneItemKind::kPattern:
      paintHatch(item, brush);
      return;
    default:
      paintOutline(item, brush);
  }
}

const ScenePainter::Pattern& ScenePainter::patternOf(RecordId linetype) {
  const auto [found, isNew] = patterns_.try_emplace(linetype);
  Pattern& pattern = found->second;
  if (!isNew || linetype == kNoRecord) return pattern;
  pattern.dashes = drawing_.dashes(linetype);
  pattern.isDrawn = std::ranges::any_of(pattern.dashes, [](const Dash& dash) { return dash.length <= 0; });
  return pattern;
}

void ScenePainter::paintOutline(const SceneItem& item, Brush brush) {
  const SceneLook& look = scene_.looks[item.look];
  const Pattern& pattern = patternOf(look.linetype);
  const double scale = look.linetypeScale * scale_.view.scale;
  for (const SceneLoop& loop : scene_.loopsOf(item)) {
    const std::vector<PixelPoint> line = pixelsOf(loop);
    paths_.begin(brush);
    if (pattern.isDrawn && line.size() > 1 && pieces_ < kMostPieces) {
      const DashSink sink{[&](std::span<const PixelPoint> dash) {
                            ++pieces_;
                            paths_.begin(brush);
                            paths_.add(dash, false);
                          },
                          [&](const DashSymbol& symbol, PixelPoint at, PixelPoint along) {
                            paintSymbol(symbol, at, along, scale, brush);
                          }};
      if (drawDashes(line, pattern.dashes, scale, sink)) continue;
    }
    if (pattern.isDrawn) ++solidLines_;
    paths_.add(line, false);
  }
}

void ScenePainter::paintFill(const SceneItem& item, Brush brush) {
  brush.width = 0;
  paths_.begin(brush);
  for (const SceneLoop& loop : scene_.loopsOf(item)) paths_.add(pixelsOf(loop), true);
}

void ScenePainter::paintHatch(const SceneItem& item, const Brush& brush) {
  std::vector<std::vector<PixelPoint>> boundary;
  for (const SceneLoop& loop : scene_.loopsOf(item)) boundary.push_back(pixelsOf(loop));
  paths_.begin(brush);
  const auto draw = [&](std::span<const PixelPoint> piece) {
    ++pieces_;
    paths_.begin(brush);
    paths_.add(piece, false);
  };
  if (pieces_ < kMostPieces && drawHatchLines(scene_.hatches[item.pattern], boundary, scale_.view, draw))
    return;
  ++tintedHatches_;
  Brush tint = brush;
  tint.width = 0;
  tint.opacity = static_cast<std::uint8_t>(brush.opacity * kFaint / 255);
  paths_.begin(tint);
  for (const std::vector<PixelPoint>& loop : boundary) paths_.add(loop, true);
}

void ScenePainter::paintText(const SceneText& text, const Brush& brush) {
  const PixelView& view = scale_.view;
  const PixelPoint origin = view.point(text.origin.x, text.origin.y);
  const PixelPoint along = view.vector(text.along.x, text.along.y), up = view.vector(text.up.x, text.up.y);
  const double height = std::hypot(up.x, up.y);
  if (height < kLeastReadable) {
    Brush line = brush;
    line.width = static_cast<float>(std::max(height * kLineOfText, scale_.hairline / 2));
    line.opacity = static_cast<std::uint8_t>(brush.opacity * kFaint / 255);
    paths_.begin(line);
    const PixelPoint ends[] = {shifted(origin, along, 0, up, 0.5), shifted(origin, along, 1, up, 0.5)};
    paths_.add(ends, false);
    return;
  }
  const double run = runOf(text.text, *text.font);
  if (!(run > 0)) return;
  const TextPlace place{origin, {along.x / run, along.y / run}, up};
  if (!glyphs_.paint(text.text, *text.font, text.turned, place, brush)) ++lostTexts_;
}

void ScenePainter::paintSymbol(const DashSymbol& symbol, PixelPoint at, PixelPoint along, double scale,
                               const Brush& brush) {
  const PixelPoint across{along.y, -along.x};  // to the left, where y runs downwards
  double angle = std::atan2(-along.y, along.x);
  if (symbol.turn == DashSymbol::Turn::kAbsolute) angle = 0;
  if (symbol.turn == DashSymbol::Turn::kUpright && std::cos(angle) < 0) angle += std::numbers::pi;
  angle += symbol.degrees * kRadiansPerDegree;
  double height = symbol.scale * scale;
  if (!symbol.text.empty() && symbol.style != kNoRecord) {
    const double fixed = drawing_.real(symbol.style, Property::kFixedHeight).value_or(0);
    if (fixed > 0) height *= fixed;
  }
  const double cosine = height * std::cos(angle), sine = height * std::sin(angle);
  const TextPlace place{
      shifted(at, along, symbol.x * scale, across, symbol.y * scale), {cosine, -sine}, {-sine, -cosine}};
  if (height < kLeastReadable && !symbol.text.empty()) return;
  if (!symbol.text.empty()) {
    if (!glyphs_.paint(symbol.text, *styles_.of(symbol.style).font, false, place, brush)) ++lostSymbols_;
    return;
  }
  const std::wstring file =
      symbol.style == kNoRecord ? L"" : drawing_.text(symbol.style, Property::kFontFile).value_or(L"");
  const GlyphPath path = fonts_.shape(file, symbol.shape);
  if (path.pieces.empty()) {
    ++lostSymbols_;
  } else {
    glyphs_.paint(path, place, brush);
  }
}

std::vector<std::vector<PixelPoint>> ScenePainter::outlinesOf(const SceneItem& item) const {
  std::vector<std::vector<PixelPoint>> outlines;
  if (item.kind != SceneItemKind::kText) {
    for (const SceneLoop& loop : scene_.loopsOf(item)) outlines.push_back(pixelsOf(loop));
    return outlines;
  }
  for (const SceneText& text : scene_.textsOf(item)) {
    const PixelPoint origin = scale_.view.point(text.origin.x, text.origin.y);
    const PixelPoint along = scale_.view.vector(text.along.x, text.along.y);
    const PixelPoint up = scale_.view.vector(text.up.x, text.up.y);
    outlines.push_back({origin, shifted(origin, along, 1, up, 0), shifted(origin, along, 1, up, 1),
                        shifted(origin, along, 0, up, 1), origin});
  }
  return outlines;
}

void ScenePainter::addRemarks() {
  const auto say = [&](std::size_t count, const wchar_t* what) {
    if (count > 0) picture_.remarks.push_back(std::to_wstring(count) + what);
  };
  say(solidLines_, L" lines have a linetype too fine for this picture and are continuous");
  say(tintedHatches_, L" hatches have a pattern too fine for this picture and are a tint");
  say(lostTexts_, L" texts have characters that no font of this machine has");
  say(lostSymbols_, L" texts or shapes in linetypes are gaps: their font or file of shapes is not found");
}

}  // namespace cad
