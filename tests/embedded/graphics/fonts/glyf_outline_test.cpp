#include "embedded/graphics/fonts/glyf_outline.h"

#include <gtest/gtest.h>

#include <sstream>

namespace cad {
namespace {

std::string big(std::initializer_list<int> numbers) {
  std::string bytes;
  for (const int number : numbers) bytes += {static_cast<char>(number >> 8), static_cast<char>(number)};
  return bytes;
}

// The number of contours, the box, the last points.
std::string head(std::initializer_list<int> ends) {
  return big({static_cast<int>(ends.size()), 0, 0, 0, 0}) + big(ends) + big({0});
}

// Glyphs, one behind the other, from number 1 on: the first of a font stands for what it lacks.
class Font {
 public:
  explicit Font(std::vector<std::string> glyphs) {
    glyphs.insert(glyphs.begin(), std::string());
    for (const std::string& glyph : glyphs) {
      places_ += big({static_cast<int>(outlines_.size() / 2)});
      outlines_ += glyph + (glyph.size() % 2 == 0 ? "" : std::string(1, '\0'));
    }
    places_ += big({static_cast<int>(outlines_.size() / 2)});
    count_ = glyphs.size();
  }
  // "M 0,0 L 10,0 Q 10,10 0,10": of a curve its control, then its end.
  std::string path(std::size_t glyph) const {
    std::ostringstream text;
    const GlyfTables tables{FontBytes(places_), FontBytes(outlines_), false, count_};
    for (const GlyphPath::Piece& piece : glyfPath(tables, glyph).pieces) {
      text << "MLQC"[static_cast<int>(piece.kind)] << ' ';
      if (piece.kind == GlyphPath::Kind::kQuadratic) text << piece.x1 << ',' << piece.y1 << ' ';
      text << piece.x << ',' << piece.y << ' ';
    }
    return text.str();
  }

 private:
  std::string places_, outlines_;
  std::size_t count_ = 0;
};

TEST(GlyfOutline, StepsOfAllFormsMakeAContour) {
  // on the curve; x the same, y the same; x one byte up; y one byte up; x one byte down
  const std::string flags = {0x31, 0x33, 0x35, 0x23};
  EXPECT_EQ(Font({head({3}) + flags + std::string({10, 10, 10})}).path(1),
            "M 0,0 L 10,0 L 10,10 L 0,10 L 0,0 ");
  // steps of two bytes, a flag that is repeated
  EXPECT_EQ(Font({head({2}) + std::string({0x09, 2}) + big({300, -300, 600}) + big({-1, 0, 500})}).path(1),
            "M 300,-1 L 0,-1 L 600,499 L 300,-1 ");
}

TEST(GlyfOutline, CurvesPassThroughTheMiddleOfTheirControls) {
  const std::string steps = big({0, 10, 0, -10}) + big({0, 0, 10, 0});
  EXPECT_EQ(Font({head({3}) + std::string({1, 0, 0, 1}) + steps}).path(1),
            "M 0,0 Q 10,0 10,5 Q 10,10 0,10 L 0,0 ");
  EXPECT_EQ(Font({head({3}) + std::string({0, 0, 0, 0}) + steps}).path(1),
            "M 0,5 Q 0,0 5,0 Q 10,0 10,5 Q 10,10 5,10 Q 0,10 0,5 ")
      << "no point is on the curve";
  EXPECT_EQ(Font({head({3}) + std::string({0, 1, 1, 1}) + steps}).path(1),
            "M 10,0 L 10,10 L 0,10 Q 0,0 10,0 ")
      << "the first is not";
}

TEST(GlyfOutline, PartsAreMovedAndScaledAndEndSomewhere) {
  const std::string line = head({1}) + std::string({1, 1}) + big({0, 4}) + big({0, 2});
  const auto parts = [](std::initializer_list<int> words) { return big({-1, 0, 0, 0, 0}) + big(words); };
  const Font font({line, parts({0x0023, 1, 100, -50, 0x000B, 1, 0, 0, 0x2000}), parts({0x0003, 3, 0, 0})});
  EXPECT_EQ(font.path(2), "M 100,-50 L 104,-48 L 100,-50 M 0,0 L 2,1 L 0,0 ");
  EXPECT_EQ(font.path(3), "") << "a glyph that is a part of itself";
  EXPECT_EQ(font.path(4), "") << "there is none";
}

TEST(GlyfOutline, NothingIsReadBehindADamage) {
  const std::string whole = head({3}) + std::string({1, 0, 0, 1}) + big({0, 10, 0, -10, 0, 0, 10, 0});
  for (std::size_t length = 0; length < 16; ++length)
    EXPECT_EQ(Font({whole.substr(0, length)}).path(1), "") << length;
  EXPECT_EQ(Font({head({3, 1}) + std::string({1, 1, 1, 1}) + big({0, 1, 2, 3, 0, 0, 0, 0})}).path(1), "")
      << "the second contour ends before the first";
}

}  // namespace
}  // namespace cad
