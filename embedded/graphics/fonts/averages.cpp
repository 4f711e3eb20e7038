// Averages are assumed for a font whose file is missing.
//
// Of outlined faces: the advances are those of the usual sans-serif faces of offices, in which drawings are
// dimensioned mostly; ink and heights of digits, of R and of the diameter sign are what drawings of other
// hosts show, those of other characters were measured on a free face with the same advances. A full-width
// character is an em wide.
//
// Of fonts of shapes: a grid of a sixth of the height, as the host's standard font has it. A character is
// four sixths wide and two apart from the next; 0, 1 and the period are narrower. A full-width character is
// as wide as it is high.

#include <algorithm>
#include <iterator>

#include "embedded/graphics/fonts/characters.h"
#include "embedded/graphics/fonts/font_metrics.h"

namespace cad {
namespace {

// In units of which kOutlineHeight are the text's height, kEm the em.
constexpr double kOutlineHeight = 1466, kEm = 2048;

struct Outline {
  char32_t character;
  std::int16_t advance, left, right, bottom, top;
};

// clang-format off
constexpr Outline kOutlines[] = {
    {L'!', 569, 185, 383, 0, 1466}, {L'"', 727, 87, 630, 1005, 1466}, {L'#', 1139, 9, 1129, 0, 1458},
    {L'$', 1139, 22, 1106, -148, 1577}, {L'%', 1821, 73, 1748, -12, 1478},
    {L'&', 1366, 72, 1334, -21, 1474}, {L'\'', 391, 104, 288, 1005, 1466},
    {L'(', 682, 127, 670, -441, 1544}, {L')', 682, 12, 555, -441, 1544}, {L'*', 797, 33, 765, 718, 1466},
    {L'+', 1196, 100, 1095, 187, 1230}, {L',', 569, 184, 385, -290, 228}, {L'-', 682, 91, 591, 483, 649},
    {L'.', 569, 187, 382, 0, 228}, {L'/', 569, 0, 569, -21, 1544}, {L'0', 1139, 85, 1049, -25, 1472},
    {L'1', 1139, 223, 763, 0, 1472}, {L'2', 1139, 60, 1031, 0, 1472}, {L'3', 1139, 86, 1046, -26, 1472},
    {L'4', 1139, 26, 1040, 0, 1466}, {L'5', 1139, 85, 1053, -26, 1447}, {L'6', 1139, 77, 1045, -26, 1472},
    {L'7', 1139, 97, 1051, 0, 1447}, {L'8', 1139, 83, 1049, -26, 1472}, {L'9', 1139, 85, 1049, -25, 1472},
    {L':', 569, 187, 382, 0, 1126}, {L';', 569, 184, 385, -273, 1126}, {L'<', 1196, 101, 1096, 160, 1242},
    {L'=', 1196, 100, 1095, 358, 1045}, {L'>', 1196, 101, 1096, 160, 1242}, {L'?', 1139, 84, 1063, 0, 1488},
    {L'@', 2079, 161, 1902, -294, 1544}, {L'A', 1366, 4, 1362, 0, 1466}, {L'B', 1366, 168, 1258, 0, 1466},
    {L'C', 1479, 104, 1401, -21, 1488}, {L'D', 1479, 168, 1381, 0, 1466}, {L'E', 1366, 168, 1278, 0, 1466},
    {L'F', 1251, 168, 1169, 0, 1466}, {L'G', 1593, 103, 1440, -21, 1488}, {L'H', 1479, 168, 1312, 0, 1466},
    {L'I', 569, 189, 380, 0, 1466}, {L'J', 1024, 32, 872, -21, 1466}, {L'K', 1366, 168, 1343, 0, 1466},
    {L'L', 1139, 168, 1071, 0, 1466}, {L'M', 1706, 168, 1538, 0, 1466}, {L'N', 1479, 168, 1312, 0, 1466},
    {L'O', 1593, 97, 1495, -21, 1488}, {L'P', 1366, 168, 1258, 0, 1466}, {L'Q', 1593, 97, 1495, -403, 1488},
    {L'R', 1479, 161, 1384, 0, 1466}, {L'S', 1366, 93, 1272, -21, 1488}, {L'T', 1251, 46, 1204, 0, 1466},
    {L'U', 1479, 158, 1321, -21, 1466}, {L'V', 1366, 9, 1357, 0, 1466}, {L'W', 1933, 9, 1926, 0, 1466},
    {L'X', 1366, 46, 1323, 0, 1466}, {L'Y', 1366, 45, 1321, 0, 1466}, {L'Z', 1251, 65, 1187, 0, 1466},
    {L'[', 569, 146, 553, -442, 1544}, {L'\\', 569, 0, 569, -21, 1544}, {L']', 569, 16, 423, -442, 1544},
    {L'^', 961, 10, 951, 700, 1466}, {L'_', 1139, -31, 1162, -423, -288}, {L'`', 682, 106, 530, 1250, 1569},
    {L'a', 1139, 87, 1139, -21, 1147}, {L'b', 1139, 132, 1053, -21, 1544}, {L'c', 1024, 87, 970, -21, 1147},
    {L'd', 1139, 86, 1007, -21, 1544}, {L'e', 1139, 87, 1048, -21, 1147}, {L'f', 569, 29, 572, 0, 1542},
    {L'g', 1139, 86, 1007, -442, 1143}, {L'h', 1139, 142, 1006, 0, 1544}, {L'i', 455, 137, 317, 0, 1544},
    {L'j', 455, -50, 317, -442, 1544}, {L'k', 1024, 138, 1027, 0, 1544}, {L'l', 455, 138, 318, 0, 1544},
    {L'm', 1706, 136, 1571, 0, 1147}, {L'n', 1139, 136, 1006, 0, 1147}, {L'o', 1139, 86, 1053, -21, 1147},
    {L'p', 1139, 132, 1053, -442, 1146}, {L'q', 1139, 86, 1008, -442, 1147}, {L'r', 682, 136, 648, 0, 1147},
    {L's', 1024, 57, 950, -21, 1143}, {L't', 569, 31, 554, -17, 1378}, {L'u', 1139, 133, 1003, -21, 1126},
    {L'v', 1024, 7, 1017, 0, 1126}, {L'w', 1479, -3, 1484, 0, 1126}, {L'x', 1024, 23, 1002, 0, 1126},
    {L'y', 1024, 5, 1020, -442, 1126}, {L'z', 1024, 49, 950, 0, 1126}, {L'{', 684, 34, 648, -442, 1544},
    {L'|', 532, 183, 349, -452, 1544}, {L'}', 684, 34, 647, -442, 1544}, {L'~', 1196, 92, 1104, 575, 840},
    {0x00B0, 819, 122, 683, 895, 1472}, {0x00B1, 1124, 65, 1060, 0, 1268},
    {0x00B2, 682, 41, 643, 586, 1478}, {0x00B3, 682, 27, 642, 573, 1478},
    {0x00B5, 1180, 140, 1133, -442, 1126}, {0x00D7, 1196, 142, 1055, 234, 1185},
    {0x00D8, 1593, 83, 1524, -55, 1520},
};
// clang-format on

constexpr Outline kOtherOutline{0, 1139, 80, 1059, 0, 1466};
constexpr Outline kFullOutline{0, 2048, 96, 1945, -170, 1700};

class OutlineAverages : public FontMetrics {
 public:
  Glyph glyph(char32_t c) const override {
    if (c == L' ' || c == 0x00A0) return {.advance = 569 / kOutlineHeight};
    if (c == 0x3000) return {.advance = kEm / kOutlineHeight};
    const Outline& o = outlineOf(c == kDiameter || c == kDiameterSign ? kSlashedO : c);
    return {o.advance / kOutlineHeight, o.left / kOutlineHeight, o.right / kOutlineHeight,
            o.bottom / kOutlineHeight,  o.top / kOutlineHeight,  true};
  }

 private:
  static const Outline& outlineOf(char32_t c) {
    // The first rows stand in the order of their characters, without a gap.
    constexpr char32_t kFirst = L'!', kLast = L'~';
    if (c >= kFirst && c <= kLast) return kOutlines[c - kFirst];
    const auto found = std::find_if(std::begin(kOutlines), std::end(kOutlines),
                                    [c](const Outline& outline) { return outline.character == c; });
    if (found != std::end(kOutlines)) return *found;
    return isFullWidth(c) ? kFullOutline : kOtherOutline;
  }
};

bool isOneOf(char32_t c, std::u32string_view characters) {
  return characters.find(c) != std::u32string_view::npos;
}

class ShapeAverages : public FontMetrics {
 public:
  Glyph glyph(char32_t c) const override {
    if (c == L' ' || c == 0x00A0) return {.advance = 1};
    if (c == 0x3000) return {.advance = 7 / kHeight};
    if (isFullWidth(c)) return inked(6, 0, 6);
    const double bottom = isOneOf(c, U"gjpqy,;") ? -2 : 0;
    const double top = isOneOf(c, U".,_") ? 0 : isOneOf(c, U"acegmnopqrsuvwxyz:;-+") ? 4 : 6;
    return inked(widthOf(c), bottom, top);
  }

 private:
  static constexpr double kHeight = 6;

  static double widthOf(char32_t c) {
    if (isOneOf(c, U".,:;'|!")) return 0;
    if (isOneOf(c, U"1Iil")) return 2;
    return isOneOf(c, U"0\"()[]\u00B0") ? 3 : 4;
  }

  static Glyph inked(double width, double bottom, double top) {
    return {(width + 2) / kHeight, 0, width / kHeight, bottom / kHeight, top / kHeight, true};
  }
};

}  // namespace

const FontMetrics& outlineAverages() {
  static const OutlineAverages kAverages;
  return kAverages;
}

const FontMetrics& shapeAverages() {
  static const ShapeAverages kAverages;
  return kAverages;
}

}  // namespace cad
