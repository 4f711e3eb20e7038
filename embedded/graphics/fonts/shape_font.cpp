#include "embedded/graphics/fonts/shape_font.h"

#include <array>
#include <utility>

#include "base/codepage.h"
#include "embedded/graphics/fonts/shape_pen.h"

namespace cad {
namespace {

using support::ShapeFile;

constexpr char32_t kFirstBeyondAscii = 128;

// Where fonts have signs that ASCII lacks, by number; those numbered by character first.
struct SignPlace {
  char32_t sign;
  int place;
};
constexpr SignPlace kSigns[] = {{0x00B0, 256}, {0x00B0, 127}, {0x00B1, 257},   {0x00B1, 128},
                                {0x2205, 258}, {0x2205, 129}, {0x2205, 0x00D8}};

class ShapeFont : public FontMetrics {
 public:
  ShapeFont(ShapeFile font, std::optional<ShapeFile> bigFont)
      : font_(std::move(font)), bigFont_(std::move(bigFont)) {
    for (char32_t c = 0; c < kFirstBeyondAscii; ++c) ascii_[c] = measured(c);
  }

  Glyph glyph(char32_t c) const override { return c < kFirstBeyondAscii ? ascii_[c] : measured(c); }

  GlyphPath path(char32_t c) const override {
    if (const std::string_view codes = codesOf(c); !codes.empty()) return shapePath(font_, codes);
    if (const std::string_view codes = bigCodesOf(c); !codes.empty()) return shapePath(*bigFont_, codes);
    return {};
  }

 private:
  Glyph measured(char32_t c) const {
    if (const std::string_view codes = codesOf(c); !codes.empty()) return inHeights(font_, codes);
    if (const std::string_view codes = bigCodesOf(c); !codes.empty()) return inHeights(*bigFont_, codes);
    return shapeAverages().glyph(c);
  }

  std::string_view codesOf(char32_t c) const {
    const bool byCharacter = font_.kind() == ShapeFile::Kind::kUnicodeFont || c < kFirstBeyondAscii;
    const int number = static_cast<int>(c);
    if (const std::string_view codes = byCharacter && c != 0 ? font_.codes(number) : ""; !codes.empty())
      return codes;
    for (const SignPlace& each : kSigns) {
      if (each.sign != c) continue;
      if (const std::string_view codes = font_.codes(each.place); !codes.empty()) return codes;
    }
    return {};
  }

  std::string_view bigCodesOf(char32_t c) const {
    if (!bigFont_ || c < kFirstBeyondAscii || c > 0xFFFF) return {};
    const std::string bytes = base::encodeCharacter(static_cast<wchar_t>(c), base::kJapanese);
    int number = 0;
    for (const char byte : bytes) number = number << 8 | static_cast<unsigned char>(byte);
    return bytes.empty() ? std::string_view() : bigFont_->codes(number);
  }

  static Glyph inHeights(const ShapeFile& file, std::string_view codes) {
    const ShapeExtents extents = extentsOf(file, codes);
    const double unit = 1.0 / file.capHeight();
    return {extents.endX * unit,   extents.left * unit, extents.right * unit,
            extents.bottom * unit, extents.top * unit,  extents.inked};
  }

  ShapeFile font_;
  std::optional<ShapeFile> bigFont_;
  std::array<Glyph, kFirstBeyondAscii> ascii_;
};

}  // namespace

GlyphPath shapePath(const ShapeFile& file, std::string_view codes) {
  std::vector<ShapeStroke> strokes;
  extentsOf(file, codes, &strokes);
  GlyphPath path;
  path.strokes = true;
  for (const ShapeStroke& stroke : strokes) {
    auto kind = GlyphPath::Kind::kMove;
    for (const ShapePoint& at : stroke) {
      path.pieces.push_back({kind, at.x, at.y});
      kind = GlyphPath::Kind::kLine;
    }
  }
  if (file.capHeight() > 0) path.scale(1.0 / file.capHeight());
  return path;
}

std::shared_ptr<const FontMetrics> shapeFont(ShapeFile font, std::optional<ShapeFile> bigFont) {
  if (font.capHeight() == 0 || font.kind() == ShapeFile::Kind::kBigFont) return nullptr;
  if (bigFont && (bigFont->capHeight() == 0 || bigFont->kind() != ShapeFile::Kind::kBigFont)) bigFont.reset();
  return std::make_shared<ShapeFont>(std::move(font), std::move(bigFont));
}

}  // namespace cad
