#include "embedded/graphics/dimensions/text_box.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "base/numbers.h"
#include "embedded/drawing/text_codes.h"

namespace cad {
namespace {

constexpr double kLineStep = 5.0 / 3;  // from base line to base line, in heights of the text
// Between the parts of a stack, in heights of its characters. Between those of a slanted fraction it is what
// drawings of other hosts show, and their base lines lie a height apart; for the other two it is assumed.
constexpr double kStackGap = 1.0 / 3;

// Lengths are in heights of the text, from the beginning of a line and its base line.
struct Ink {
  double left = std::numeric_limits<double>::max(), right = std::numeric_limits<double>::lowest();
  double bottom = left, top = right;

  bool isNone() const { return left > right; }
  double width() const { return isNone() ? 0 : right - left; }
  void add(const Ink& other, double dx, double dy) {
    if (other.isNone()) return;
    left = std::min(left, other.left + dx), right = std::max(right, other.right + dx);
    bottom = std::min(bottom, other.bottom + dy), top = std::max(top, other.top + dy);
  }
};

struct Run {
  Ink ink;
  double advance = 0;
};

// What codes set for the characters that follow.
struct Format {
  enum class Level : std::uint8_t { kBottom, kCentre, kTop };
  double height = 1, width = 1, spacing = 1, slant = 0;
  Level level = Level::kBottom;

  // Where the base line of something of this height lies above that of the line.
  double lift(double itsHeight) const {
    if (level == Level::kBottom) return 0;
    return level == Level::kTop ? 1 - itsHeight : (1 - itsHeight) / 2;
  }
};

class Measurer {
 public:
  Measurer(double height, double widthFactor, const FontMetrics& font) : height_(height), font_(font) {
    format_.width = widthFactor;
  }

  TextBox box(std::wstring_view value) {
    TextCodeReader reader(value);
    for (TextCode code; reader.next(code);) take(code);
    endLine();
    TextBox box{block_.width() * height_, block_.isNone() ? 0 : (block_.top - block_.bottom) * height_};
    if (parting_) box.parting = (*parting_ - block_.bottom) * height_;
    return box;
  }

 private:
  void take(const TextCode& code) {
    using Kind = TextCode::Kind;
    switch (code.kind) {
      case Kind::kCharacter:
        character(code.code);
        return;
      case Kind::kNewLine:
        endLine();
        if (code.code == L'X' && !upperEnd_) upperEnd_ = block_.isNone() ? base_ : block_.bottom;
        return;
      case Kind::kOpen:
        outer_.push_back(format_);
        return;
      case Kind::kClose:
        if (outer_.empty()) return;
        format_ = outer_.back();
        outer_.pop_back();
        return;
      case Kind::kValue:
        set(code.code, code.value);
        return;
      case Kind::kStack:
        put(stackRun(stackOf(code.value)), 0);
        return;
      case Kind::kSwitch:
        return;  // lines under, over and through the text count for no ink
    }
  }

  void set(wchar_t code, std::wstring_view value) {
    const bool relative = value.ends_with(L'x') || value.ends_with(L'X');
    const double number = base::leadingReal(value);
    if (code == L'A' && number >= 0 && number <= 2) format_.level = static_cast<Format::Level>(number);
    if (code == L'Q') format_.slant = std::tan(std::clamp(number, -85.0, 85.0) * kRadiansPerDegree);
    if (number <= 0) return;
    if (code == L'H') format_.height = relative ? format_.height * number : number / height_;
    if (code == L'W') format_.width = relative ? format_.width * number : number;
    if (code == L'T') format_.spacing = number;
  }

  void character(wchar_t unit) {
    if (const char32_t c = whole(unit)) {
      Run run;
      addGlyph(run, c);
      put(run, format_.lift(format_.height));
    }
  }

  // Where wide characters have sixteen bits, a character may come in two; 0: the other half is to come.
  char32_t whole(wchar_t unit) {
    const auto value = static_cast<char32_t>(unit);
    if (value >= 0xD800 && value < 0xDC00) {
      high_ = value;
      return 0;
    }
    const bool paired = high_ != 0 && value >= 0xDC00 && value < 0xE000;
    const char32_t c = paired ? 0x10000 + ((high_ - 0xD800) << 10) + (value - 0xDC00) : value;
    high_ = 0;
    return c;
  }

  void addGlyph(Run& run, char32_t c) const {
    const Glyph glyph = font_.glyph(c);
    const double wide = format_.height * format_.width, high = format_.height;
    if (glyph.inked) {
      const double low = glyph.bottom * high, top = glyph.top * high;
      const double leaning = std::min(low * format_.slant, top * format_.slant);
      const double leading = std::max(low * format_.slant, top * format_.slant);
      run.ink.add({glyph.left * wide + leaning, glyph.right * wide + leading, low, top}, run.advance, 0);
    }
    run.advance += glyph.advance * wide * format_.spacing;
  }

  Run runOf(std::wstring_view text) {
    Run run;
    for (const wchar_t unit : text)
      if (const char32_t c = whole(unit)) addGlyph(run, c);
    return run;
  }

  // The width of what is drawn, and the distance from the base line of the lower part to that of the upper.
  Run stackRun(const TextStack& stack) {
    const Run upper = runOf(stack.upper), lower = runOf(stack.lower);
    const double high = format_.height, gap = kStackGap * high;
    const bool slanted = stack.bar == L'#';
    const double step = stack.bar == 0 ? 0 : slanted ? high : high + gap;
    Run run;
    if (slanted) {  // stands on the base line whatever \A says, as drawings of other hosts show it
      const double beside = upper.ink.width() + gap - (lower.ink.isNone() ? 0 : lower.ink.left);
      run.ink.add(upper.ink, upper.ink.isNone() ? 0 : -upper.ink.left, step);
      run.ink.add(lower.ink, beside, 0);
      run.advance = beside + lower.advance;
      return run;
    }
    const double lift = format_.lift(high + step);
    run.advance = std::max(upper.advance, lower.advance);
    // The parts of a fraction are centred, those of tolerances begin together.
    const double share = stack.bar == L'/' ? 0.5 : 0;
    run.ink.add(upper.ink, (run.advance - upper.advance) * share, lift + step);
    run.ink.add(lower.ink, (run.advance - lower.advance) * share, lift);
    return run;
  }

  void put(const Run& run, double lift) {
    line_.ink.add(run.ink, line_.advance, lift);
    line_.advance += run.advance;
    lineHeight_ = std::max(lineHeight_, format_.height);
  }

  // A line keeps its distance from the one above; what reaches beyond the height of its characters, as stacks
  // do, pushes it down.
  void endLine() {
    const double height = lineHeight_ > 0 ? lineHeight_ : format_.height;
    if (!first_) base_ -= kLineStep * height + std::max(0.0, line_.ink.isNone() ? 0 : line_.ink.top - height);
    first_ = false;
    if (!line_.ink.isNone()) {
      // Lines are centred: what counts is the widest.
      line_.ink.right = line_.ink.width();
      line_.ink.left = 0;
      if (upperEnd_ && !parting_) parting_ = (*upperEnd_ + base_ + line_.ink.top) / 2;
      block_.add(line_.ink, 0, base_);
      base_ += std::min(0.0, line_.ink.bottom + height / 3);
    }
    line_ = {};
    lineHeight_ = 0;
  }

  double height_;
  const FontMetrics& font_;
  Format format_;
  std::vector<Format> outer_;
  char32_t high_ = 0;

  Run line_;
  double lineHeight_ = 0, base_ = 0;
  bool first_ = true;
  Ink block_;
  std::optional<double> upperEnd_, parting_;  // where the lines above a \X end, and the middle to those below
};

}  // namespace

TextBox textBox(std::wstring_view value, double height, double widthFactor, const FontMetrics& font) {
  if (!(height > 0)) return {};
  return Measurer(height, widthFactor, font).box(value);
}

}  // namespace cad
