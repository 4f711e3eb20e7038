#include "embedded/graphics/text_layout.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "embedded/drawing/plain_text.h"
#include "embedded/graphics/fonts/characters.h"

namespace cad {
namespace {

using Side = TextGeometry::Side;
using Level = TextGeometry::Level;

constexpr double kHalfWidth = 0.7, kFullWidth = 1.3;  // of a character, by the height of a capital
constexpr double kDescent = 1.0 / 3;                  // below the base line, likewise
constexpr double kLineStep = 5.0 / 3;                 // from base line to base line, likewise

constexpr double kVerticalStep = 1.5;  // from character to character below it, likewise

double widthOf(wchar_t c, const FontMetrics* font) {
  const auto character = static_cast<char32_t>(c);
  if (font != nullptr) return font->glyph(character).advance;
  return isFullWidth(character) ? kFullWidth : kHalfWidth;
}

double widthOf(std::wstring_view line, const FontMetrics* font) {
  double width = 0;
  for (const wchar_t c : line) width += widthOf(c, font);
  return width;
}

// Broken at line ends, and at blanks or between full-width characters where a line gets wider than
// `widest` heights (0: never).
std::vector<std::wstring> linesOf(std::wstring_view text, double widest, const FontMetrics* font) {
  std::vector<std::wstring> lines(1);
  double width = 0;
  std::size_t breakAt = 0;
  for (const wchar_t c : text) {
    if (c == L'\n') {
      lines.emplace_back();
      width = 0, breakAt = 0;
      continue;
    }
    if (isFullWidth(static_cast<char32_t>(c))) breakAt = lines.back().size();
    if (widest > 0 && width + widthOf(c, font) > widest && breakAt > 0 && c != L' ') {
      std::wstring rest = lines.back().substr(breakAt);
      lines.back().erase(breakAt);
      width = widthOf(rest, font);
      lines.push_back(std::move(rest));
      breakAt = 0;
    }
    lines.back() += c;
    width += widthOf(c, font);
    if (c == L' ') breakAt = lines.back().size();
  }
  return lines;
}

// How much of a line's width stands before the aligned point.
double shareBefore(Side side) {
  if (side == Side::kCentre) return 0.5;
  return side == Side::kRight ? 1 : 0;
}

// From the aligned point up to the base line of the last of `rows` lines, in heights.
double liftOf(const TextGeometry& text, double rows) {
  const double above = rows * kLineStep * text.lineSpacing;
  switch (text.level) {
    case Level::kBottom:
      return text.multiline ? 0 : kDescent;
    case Level::kMiddle:
      return -(1 + above) / 2;
    case Level::kTop:
      return -1 - above;
    default:
      return 0;
  }
}

class TextLayout {
 public:
  TextLayout(const TextGeometry& text, const TextStyles::Style& style)
      : text_(text), style_(style), height_(text.height), factor_(text.widthFactor) {
    angle_ = text.rotation * std::numbers::pi / 180;
  }

  std::vector<SceneText> lines() {
    const double widest = text_.multiline && text_.frameWidth > 0 && height_ > 0
                              ? text_.frameWidth / (height_ * factor_) * 1.02
                              : 0;
    const std::vector<std::wstring> lines = text_.multiline
                                                ? linesOf(plainText(text_.contents), widest, style_.font)
                                                : std::vector<std::wstring>{plainLine(text_.contents)};
    if (text_.side == Side::kAligned || text_.side == Side::kFit)
      stretch(widthOf(lines.front(), style_.font));
    if (style_.vertical && !text_.multiline) return column(lines.front());
    const double rows = static_cast<double>(lines.size() - 1);
    std::vector<SceneText> out;
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const double above = (rows - static_cast<double>(i)) * kLineStep * text_.lineSpacing;
      if (!lines[i].empty()) out.push_back(place(lines[i], (liftOf(text_, rows) + above) * height_));
    }
    return out;
  }

 private:
  // Between two points: fit keeps the height, aligned the proportions.
  void stretch(double width) {
    const double dx = text_.second.x - text_.at.x, dy = text_.second.y - text_.at.y;
    const double distance = std::hypot(dx, dy);
    if (distance == 0 || width == 0) return;
    angle_ = std::atan2(dy, dx);
    if (text_.side == Side::kAligned) {
      height_ = distance / (width * factor_);
    } else if (height_ > 0) {
      factor_ = distance / (width * height_);
    }
  }

  // One character below the other, their middles above each other; the first hangs from the aligned point.
  std::vector<SceneText> column(std::wstring_view line) const {
    std::vector<SceneText> out;
    const double step = kVerticalStep * height_, whole = step * static_cast<double>(line.size());
    double lift = -height_ + shareBefore(text_.side) * (whole - step + height_);
    for (const wchar_t c : line) {
      out.push_back(place(std::wstring(1, c), lift));
      SceneText& placed = out.back();
      const double toMiddle = 0.5 - shareBefore(text_.side);
      placed.origin.x -= placed.along.x * toMiddle, placed.origin.y -= placed.along.y * toMiddle;
      lift -= step;
    }
    return out;
  }

  SceneText place(const std::wstring& line, double lift) const {
    const double cosine = std::cos(angle_), sine = std::sin(angle_);
    const double slant = std::tan(std::clamp(text_.oblique, -85.0, 85.0) * std::numbers::pi / 180);
    double width = widthOf(line, style_.font) * height_ * factor_, up = height_;
    if (text_.backwards) width = -width;
    if (text_.upsideDown) up = -up;
    SceneText placed;
    placed.text = line;
    placed.font = style_.font;
    placed.turned = style_.turned;
    const double before = shareBefore(text_.side);
    placed.along = {width * cosine, width * sine};
    placed.up = {up * (slant * cosine - sine), up * (slant * sine + cosine)};
    placed.origin = {text_.at.x - lift * sine - placed.along.x * before,
                     text_.at.y + lift * cosine - placed.along.y * before};
    return placed;
  }

  const TextGeometry& text_;
  const TextStyles::Style& style_;
  double height_, factor_, angle_ = 0;
};

}  // namespace

std::vector<SceneText> layOut(const TextGeometry& text) { return layOut(text, {}); }

std::vector<SceneText> layOut(const TextGeometry& text, const TextStyles::Style& style) {
  if (text.height <= 0 || text.widthFactor <= 0) return {};
  return TextLayout(text, style).lines();
}

}  // namespace cad
