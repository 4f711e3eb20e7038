#include "embedded/graphics/dimensions/text_box.h"

#include <gtest/gtest.h>

#include "base/codepage.h"

namespace cad {
namespace {

// Every character is half as wide as high, with ink from a tenth to four tenths of the height.
class Blocks : public FontMetrics {
 public:
  Glyph glyph(char32_t c) const override { return {0.5, 0.1, 0.4, c == L'g' ? -0.25 : 0, 1, c != L' '}; }
};

struct Row {
  const wchar_t* value;
  double width, height;
};

void expectBoxes(std::initializer_list<Row> rows, double height, const FontMetrics& font) {
  for (const Row& row : rows) {
    const TextBox box = textBox(row.value, height, 1, font);
    EXPECT_NEAR(box.width, row.width, 1e-9 * height) << base::toUtf8(row.value);
    EXPECT_NEAR(box.height, row.height, 1e-9 * height) << base::toUtf8(row.value);
  }
}

// Boxes that drawings of other hosts have, in units of their fonts.
TEST(TextBox, IsAsWideAsOtherHostsDrawIt) {
  expectBoxes({{L"46,72", 4991, 1762},
               {L"94\\U+00B0", 2876, 1497},
               {L"94%%d", 2876, 1497},
               {L"R11,4", 5205, 1762},
               {L"∅45,6", 5402, 1810},
               {L"102,59", 5951, 1762},
               {L"353,38", 6088, 1762},
               {L"\\A1;7.0711", 5791, 1497},
               {L"\\A1;35.1233", 7224, 1498},
               {L"4'-0{\\H1x;\\S1#4;}\"", 6096 + 2.0 / 3, 2963}},
              1466, outlineAverages());
  expectBoxes(
      {{L"0.125", 21, 6}, {L"0.225", 23, 6}, {L"0.190", 20, 6}, {L"R0.060", 27, 6}, {L"∅0.224", 29, 6}}, 6,
      shapeAverages());
}

TEST(TextBox, FollowsTheCodes) {
  expectBoxes({{L"", 0, 0},
               {L"   ", 0, 0},
               {L"ab", 8, 10},
               {L"ag", 8, 12.5},
               {L"  a  ", 3, 10},
               {L"a{\\H0.5x;b}c", 10.5, 10},
               {L"a{\\H5;b}c", 10.5, 10},
               {L"\\H2x;a\\H0.5x;b", 12, 20},
               {L"\\A2;a{\\H0.5x;g}", 6, 10},  // hangs from the top of the line
               {L"a{\\W2;b}c", 18, 10},
               {L"a{\\T2;b}c", 18, 10},
               {L"{\\Q45;a}", 13, 10},
               {L"{\\fArial|b0|i0|c0|p34;\\C1;\\La\\l}b", 8, 10},
               {L"a\\Pbcd", 13, 10 + 50.0 / 3},
               {L"a\\X\\Pb", 3, 10 + 100.0 / 3},
               {L"{\\H0.5x;\\S1/100;}", 6.5, 10 + 5.0 / 3},
               {L"a{\\H0.5x;\\S+1^-1;}b", 13, 10 + 5.0 / 3},
               {L"\\A1;a{\\H0.9x;\\S+1^-1;}", 12.1, 21},
               {L"a\\S1\\/2;b", 23, 10},  // one part
               {L"}a\\S;\\H;{", 3, 10}},
              10, Blocks());
}

TEST(TextBox, TellsWhereTheDimensionLinePartsIt) {
  EXPECT_NEAR(textBox(L"a\\Xb", 10, 1, Blocks()).parting.value_or(0), 40.0 / 3, 1e-9);
  EXPECT_NEAR(textBox(L"\\Xb", 10, 1, Blocks()).parting.value_or(0), 40.0 / 3, 1e-9);
  for (const wchar_t* whole : {L"a\\Pb", L"a\\X"}) EXPECT_FALSE(textBox(whole, 10, 1, Blocks()).parting);
}

TEST(TextBox, WidthFactorHeightAndWideCharacters) {
  EXPECT_DOUBLE_EQ(textBox(L"ab", 2, 0.5, Blocks()).width, 0.8);
  EXPECT_DOUBLE_EQ(textBox(L"a", 0, 1, Blocks()).width, 0);
  EXPECT_NEAR(textBox(L"寸法", 1466, 1, outlineAverages()).width, 2048 + 1849, 1e-9);
  const std::wstring beyond = base::fromUtf8("\xF0\xA0\xAE\x9F");  // one character, two units on Windows
  EXPECT_NEAR(textBox(beyond, 10, 1, Blocks()).width, 3, 1e-9);
}

}  // namespace
}  // namespace cad
