#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "embedded/graphics/fonts/font_metrics.h"
#include "tests/support/temp_folder.h"

namespace cad {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

class Fonts : public test_support::TempFolder {
 protected:
  FontCatalogue catalogue_{[this](std::wstring_view file) {
    const fs::path path = folder_ / base::pathFromText(file);
    return fs::exists(path) ? path : fs::path();
  }};

  void expectGlyph(const FontMetrics& font, char32_t c, const Glyph& wanted) {
    const Glyph found = font.glyph(c);
    const double pairs[][2] = {{found.advance, wanted.advance},
                               {found.left, wanted.left},
                               {found.right, wanted.right},
                               {found.bottom, wanted.bottom},
                               {found.top, wanted.top}};
    for (const auto& pair : pairs) EXPECT_NEAR(pair[0], pair[1], 1e-9) << static_cast<unsigned>(c);
    EXPECT_EQ(found.inked, wanted.inked);
  }
};

std::string little(std::size_t value, int bytes = 2) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> 8 * i & 255);
  return text;
}

using Shapes = std::vector<std::pair<int, std::string>>;  // number, name and codes

std::string shapesFile(const Shapes& shapes) {
  std::string index, bodies;
  for (const auto& [number, body] : shapes) {
    index += little(static_cast<std::size_t>(number)) + little(body.size());
    bodies += body;
  }
  return "x shapes 1.0\r\n\x1A" + little(0) + little(255) + little(shapes.size()) + index + bodies + "EOF";
}

std::string unicodeFile(const Shapes& shapes) {
  const std::string& facts = shapes.front().second;
  std::string text = "x unifont 1.0\r\n\x1A" + little(shapes.size(), 4) + little(facts.size()) + facts;
  for (auto shape = shapes.begin() + 1; shape != shapes.end(); ++shape)
    text += little(static_cast<std::size_t>(shape->first)) + little(shape->second.size()) + shape->second;
  return text;
}

std::string bigFile(const Shapes& shapes) {
  const std::string head =
      "x bigfont 1.0\r\n\x1A" + little(8) + little(shapes.size()) + little(1) + little(0x81) + little(0x9F);
  std::string index, bodies;
  for (const auto& [number, body] : shapes) {
    index += little(static_cast<std::size_t>(number)) + little(body.size()) +
             little(head.size() + 8 * shapes.size() + bodies.size(), 4);
    bodies += body;
  }
  return head + index + bodies;
}

// Six units high; what each shape draws, in words.
const std::string kFacts = "font\0\x06\x02\x02\0"s;
const std::string kUpStroke = "\0\x64\x02\x08\x02\xFA\0"s;  // six up; then, pen up, to (2, 0)
const std::string kSteep =
    "\0\x02\x08\x01\xFE\x01\x43\x12\x02\x10\0"s;                    // from (1, -2): four steep, one slanting
const std::string kVertical = "\0\x0E\x08\x64\x64\x0E\x30\x40\0"s;  // what is vertical only is passed over
const std::string kScaled = "\0\x03\x02\x40\x04\x02\x24\x05\x20\x06\x07\x41\0"s;  // ends with the shape 0x41
const std::string kCircle = "\0\x0A\x02\x00\0"s;              // of radius 2, from its right
const std::string kQuarter = "\0\x0A\x03\xFE\0"s;             // clockwise, two octants from the right
const std::string kFraction = "\0\x0B\x80\x80\0\x02\x02\0"s;  // from 22.5 degrees to 67.5
const std::string kBulge = "\0\x0C\x04\x00\x7F\x0D\x00\x02\x00\0\0\0"s;  // a half circle below, then two up

TEST_F(Fonts, ShapesAreDrawnFarEnoughToMeasureThem) {
  make("a.shx", shapesFile({{0, kFacts},
                            {0x41, kUpStroke},
                            {0x42, kSteep},
                            {0x43, kVertical},
                            {0x44, kScaled},
                            {0x45, kCircle},
                            {0x46, kQuarter},
                            {0x47, kFraction},
                            {0x48, kBulge},
                            {0x49, "\0\x07\x49\0"s},  // itself
                            {127, kUpStroke}}));
  const auto font = catalogue_.font({.file = L"a"});
  const auto expect = [&](char32_t c, double advance, double left, double right, double bottom, double top) {
    expectGlyph(*font, c, {advance / 6, left / 6, right / 6, bottom / 6, top / 6, true});
  };
  expect(L'A', 2, 0, 0, 0, 6);
  expect(L'B', 5, 1, 4, -2, 3);
  expect(L'C', 4, 0, 4, 0, 0);
  expect(L'D', 4, 0, 4, 0, 8);
  expect(L'E', 0, -4, 0, -2, 2);
  expect(L'F', -3, -3, 0, -3, 0);
  const double from = 2 * std::cos(std::numbers::pi / 8), to = 2 * std::sin(std::numbers::pi / 8);
  expect(L'G', to - from, to - from, 0, 0, from - to);
  expect(L'H', 4, 0, 4, -2, 2);
  expect(0x00B0, 2, 0, 0, 0, 6);
  expectGlyph(*font, L'I', {});
  expectGlyph(*font, L'Z', shapeAverages().glyph(L'Z'));
}

TEST_F(Fonts, UnicodeAndBigFonts) {
  // A shape of the Unicode font is named by two bytes. あ of the big font: shape 1, half as wide and high as
  // its cell of 16 by 32, at (4, 8).
  make("u.shx", unicodeFile({{0, kFacts}, {0x2205, kUpStroke}, {0x41, "\0\x07\x22\x05\x10\0"s}}));
  make("b.shx", bigFile({{0, "big\0\x20\0\x02\x10\0"s},
                         {1, "\0\x08\x10\x20\0"s},
                         {0x82A0, "\0\x07\0\0\x01\x04\x08\x08\x10\x02\x08\x14\0\0"s}}));
  const auto font = catalogue_.font({.file = L"u.shx", .bigFile = L"b.shx"});
  expectGlyph(*font, 0x2205, {2 / 6.0, 0, 0, 0, 1, true});
  expectGlyph(*font, L'A', {3 / 6.0, 0, 0, 0, 1, true});
  expectGlyph(*font, 0x3042, {20 / 32.0, 4 / 32.0, 12 / 32.0, 8 / 32.0, 24 / 32.0, true});
  expectGlyph(*font, 0x3044, shapeAverages().glyph(0x3044));
  EXPECT_EQ(font, catalogue_.font({.file = L"u.shx", .bigFile = L"b.shx"})) << "read once";
}

TEST_F(Fonts, AveragesStandInForWhatIsMissingOrDamaged) {
  make("text.shx", "unifont 1.0\r\n");
  make("shapes.shx", shapesFile({{0x41, kUpStroke}}));
  make("broken.ttf", "no font");
  const FontMetrics *shapes = &shapeAverages(), *outlines = &outlineAverages();
  const std::pair<FontRequest, const FontMetrics*> rows[] = {
      {{}, shapes},
      {{.file = L"none"}, shapes},
      {{.file = L"text.shx"}, shapes},
      {{.file = L"shapes"}, shapes},
      {{.file = L"broken.ttf"}, outlines},
      {{.file = L"no such.TTF", .bold = true}, outlines},
      {{.typeface = L"No such face"}, outlines},
  };
  for (const auto& [request, averages] : rows) EXPECT_EQ(catalogue_.font(request).get(), averages);
  EXPECT_EQ(FontCatalogue({}).font({.file = L"ipag.ttf"}).get(), outlines) << "nobody finds files";
}

std::string words(std::initializer_list<int> values) {  // of two bytes, big-endian
  std::string text;
  for (const int value : values) (text += static_cast<char>(value >> 8)) += static_cast<char>(value & 255);
  return text;
}

// An outlined font whose one character is A, 1500 high; `at`: where in a file it is to stand.
std::string outlinedFont(char name, int advance, int at = 0) {
  const std::pair<const char*, std::string> tables[] = {
      {"cmap",
       words({0, 1, 3, 1, 0, 12, 4, 32, 0, 4, 4, 1, 0, 'A', 0xFFFF, 0, 'A', 0xFFFF, 1 - 'A', 1, 0, 0})},
      {"glyf", words({1, 50, 0, 950, 1500, 0})},
      {"head", std::string(50, '\0') + words({0, 0})},
      {"hhea", std::string(34, '\0') + words({1})},
      {"hmtx", words({advance, 50})},
      {"loca", words({0, 0, 6})},
      {"maxp", words({1, 0, 2})},
      {"name", words({0, 1, 18, 3, 1, 0x409, 1, 2, 0, name})},
  };
  std::string head = words({1, 0, std::size(tables), 0, 0, 0}), bodies;
  const std::size_t begin = head.size() + 16 * std::size(tables) + static_cast<std::size_t>(at);
  for (const auto& [tag, body] : tables) {
    head += tag + words({0, 0, 0, static_cast<int>(begin + bodies.size()), 0, static_cast<int>(body.size())});
    bodies += body;
  }
  return head + bodies;
}

TEST_F(Fonts, OutlinedFontsTellTheirMetricsOneOrSeveralInAFile) {
  const int first = 20, second = first + static_cast<int>(outlinedFont('O', 0).size());
  make("one.ttf", outlinedFont('O', 1000));
  make("two.ttc", "ttcf" + words({1, 0, 0, 2, 0, first, 0, second}) + outlinedFont('O', 1000, first) +
                      outlinedFont('T', 1200, second));
  const auto expectAdvance = [&](const FontRequest& request, double advance) {
    const auto font = catalogue_.font(request);
    expectGlyph(*font, L'A', {advance / 1500, 50 / 1500.0, 950 / 1500.0, 0, 1, true});
    expectGlyph(*font, L'B', outlineAverages().glyph(L'B'));
  };
  expectAdvance({.file = L"one.ttf"}, 1000);
  expectAdvance({.file = L"two.ttc", .typeface = L"O"}, 1000);
  expectAdvance({.file = L"two.ttc", .typeface = L"t"}, 1200);
}

TEST_F(Fonts, AFontOfTheMachineTellsItsMetrics) {
  constexpr const wchar_t* kGothic = L"/usr/share/fonts/opentype/ipafont-gothic/ipag.ttf";
  if (!fs::exists(kGothic)) GTEST_SKIP() << "a font of some machines";
  const auto font = catalogue_.font({.file = kGothic});
  const double height = 1538;  // of the A
  expectGlyph(*font, L'A', {1024 / height, 43 / height, 981 / height, 104 / height, 1, true});
  expectGlyph(*font, 0x3042, {2048 / height, 213 / height, 1825 / height, -68 / height, 1616 / height, true});
  EXPECT_FALSE(font->glyph(L' ').inked);
  expectGlyph(*font, 0x10FFFF, outlineAverages().glyph(0x10FFFF));
}

TEST_F(Fonts, ADamagedFontIsMeasuredOrRefusedAndNeverReadBeyondItsEnd) {
  const std::string whole = outlinedFont('O', 1000);
  for (std::size_t i = 0; i < 2 * whole.size(); ++i) {
    std::string bytes = whole.substr(0, i);
    if (i >= whole.size()) bytes[i - whole.size()] ^= '\x7F';
    const std::wstring name = std::to_wstring(i) + L".ttf";
    make(base::pathFromText(name), bytes);
    const auto font = catalogue_.font({.file = name});
    for (const char32_t c : {U'A', U'0', U'あ', U'∅', U'\U0001F600'})
      EXPECT_TRUE(std::isfinite(font->glyph(c).advance)) << i;
  }
}

}  // namespace
}  // namespace cad
