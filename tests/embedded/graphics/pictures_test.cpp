#include "embedded/graphics/pictures/picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#include <stb/stb_image.h>

#include "tests/embedded/dxf/dxf_text.h"
#include "tests/support/temp_folder.h"

namespace cad {
namespace {

using namespace std::string_literals;

// Layer HEAVY: 2.11 mm; linetype DASHED: 10, -5. The frame is 100 by 50: a picture of 1000 pixels has 9.6 of
// them to a unit, and a margin of 20.
constexpr double kUnit = 9.6, kMargin = 20;
const std::string kFrame = "0 LWPOLYLINE|8 0|90 4|70 1|10 0|20 0|10 100|20 0|10 100|20 50|10 0|20 50|";

std::unique_ptr<Drawing> drawingWith(const std::string& entities, const std::string& objects = {}) {
  return dxf::read(dxf::groups(
      "0 SECTION|2 HEADER|9 $ACADVER|1 AC1015|0 ENDSEC|0 SECTION|2 TABLES|0 TABLE|2 LTYPE|70 1|0 LTYPE|5 "
      "20|2 DASHED|70 0|3 |72 65|73 2|40 15|49 10|74 0|49 -5|74 0|0 ENDTAB|0 TABLE|2 LAYER|70 2|0 LAYER|5 "
      "21|2 0|70 "
      "0|62 7|6 CONTINUOUS|0 LAYER|5 22|2 HEAVY|70 0|62 3|6 DASHED|370 211|0 LAYER|5 23|2 ICE|70 0|62 1|6 "
      "CONTINUOUS|0 ENDTAB|0 TABLE|2 STYLE|70 1|0 STYLE|5 24|2 OWN|70 0|40 0|41 1|50 0|71 0|42 1|3 own|4 |0 "
      "ENDTAB|0 "
      "ENDSEC|0 SECTION|2 ENTITIES|" +
      entities + "|0 ENDSEC" + objects + "|0 EOF"));
}

Picture pictureOf(const Drawing& drawing, PictureOptions options = {}) {
  options.width = 1000;
  base::Result<Picture> picture = drawPicture(drawing, options);
  EXPECT_TRUE(picture) << picture.failure().text().c_str();
  return picture ? std::move(picture.value()) : Picture();
}

// The lengths of a shape's runs, in drawing units rounded to tenths.
std::vector<double> lengths(const Picture& picture, const PictureShape& shape) {
  std::vector<double> out;
  for (const PictureRun& run : picture.runsOf(shape)) {
    double length = 0;
    const auto points = picture.pointsOf(run);
    for (std::size_t i = 1; i < points.size(); ++i)
      length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
    out.push_back(std::round(length / kUnit * 10) / 10);
  }
  return out;
}

TEST(Pictures, DashesRunAlongTheLineAndWeightsAreOfTheLayer) {
  // Six periods and ten units: the line begins and ends with (10 + 10) / 2. The polyline bends within a dash.
  const auto drawing =
      drawingWith(kFrame +
                  "0 LINE|8 HEAVY|370 0|10 0|20 0|11 100|21 0|0 LWPOLYLINE|8 HEAVY|90 3|70 "
                  "0|10 0|20 0|10 21|20 0|10 21|20 9|0 LINE|8 HEAVY|48 100|10 0|20 9|11 50|21 9");
  const Picture picture = pictureOf(*drawing);
  ASSERT_EQ(picture.shapes.size(), 3u);
  EXPECT_EQ(lengths(picture, picture.shapes[1]), std::vector<double>(7, 10));
  EXPECT_EQ(picture.shapes[1].width, 1) << "no line is thinner than a pixel";
  EXPECT_EQ(picture.shapes[1].color, 0x00FF00u);
  // The second line is continuous: its period is longer than it.
  EXPECT_EQ(lengths(picture, picture.shapes[2]), (std::vector<double>{5, 10, 5, 50})) << "two periods";
  EXPECT_NEAR(picture.shapes[2].width, 2.11 * 1000 / 420, 0.01);
  EXPECT_EQ(picture.height, 520);
}

TEST(Pictures, HatchesHaveTheirLinesWithinTheirBoundary) {
  const auto hatch = [](const std::string& step, const std::string& base = "0",
                        const std::string& shift = "0") {
    return kFrame +
           "0 HATCH|8 0|10 0|20 0|2 X|70 0|91 2|92 3|72 0|73 1|93 4|10 0|20 0|10 40|20 0|10 40|20 40|10 0|20 "
           "40|97 0|92 3|72 0|73 1|93 4|10 10|20 10|10 30|20 10|10 30|20 30|10 10|20 30|97 0|75 0|76 1|52 "
           "0|41 "
           "1|77 0|78 1|53 0|43 " +
           base + "|44 5|45 " + shift + "|46 " + step + "|79 2|49 4|49 -6|98 0";
  };
  const Picture picture = pictureOf(*drawingWith(hatch("10")));
  // At 5, 15, 25 and 35, with the island left out of two of them; a dash in every ten units.
  const PictureShape& shape = picture.shapes.back();
  std::map<int, int> dashes;
  for (const PictureRun& run : picture.runsOf(shape)) {
    if (run.closed || run.count != 2) continue;
    const PicturePoint at = picture.pointsOf(run)[0];
    ++dashes[static_cast<int>(std::lround((picture.height - kMargin - at.y) / kUnit))];
  }
  EXPECT_EQ(dashes, (std::map<int, int>{{5, 4}, {15, 2}, {25, 2}, {35, 4}})) << "lines by their height";
  for (const std::string& entities : {hatch("0.01"), hatch("10", "1e18")}) {
    const Picture tinted = pictureOf(*drawingWith(entities));
    EXPECT_EQ(tinted.remarks.size(), 1u);
    EXPECT_EQ(tinted.shapes.back().width, 0);
    EXPECT_LT(tinted.shapes.back().opacity, 255) << "a tint";
  }
  EXPECT_TRUE(pictureOf(*drawingWith(hatch("10", "0", "1e18"))).remarks.empty()) << "and it ends";
}

TEST(Pictures, ViewportsShowModelSpaceScaledAndCutAndLayoutsAreChosenByName) {
  const auto drawing = drawingWith(
      "0 LINE|5 30|8 0|10 -1000|20 5|11 1000|21 5|0 LINE|8 ICE|10 0|20 0|11 9|21 9|0 VIEWPORT|5 31|67 1|8 "
      "0|10 50|20 "
      "25|40 100|41 50|68 2|69 2|12 0|22 0|16 0|26 0|36 1|17 0|27 0|37 0|45 25|51 0|90 0|331 23",
      "|0 SECTION|2 OBJECTS|0 ENDSEC");
  PictureOptions options;
  options.layout = L"layout1";
  const Picture picture = pictureOf(*drawing, options);
  ASSERT_EQ(picture.clips.size(), 1u);
  ASSERT_EQ(picture.shapes.size(), 2u)
      << "the line and the edge; what lies on the frozen layer does not show";
  EXPECT_EQ(picture.shapes[0].clip, 0u);
  const auto line = picture.pointsOf(picture.runsOf(picture.shapes[0])[0]);
  EXPECT_NEAR(line[0].y, 20 + 15 * kUnit, 0.01) << "5 above the middle, at scale 2";
  const std::string svg = svgText(picture);
  EXPECT_NE(svg.find("<clipPath id=\"c0\">"), svg.npos);
  EXPECT_NE(svg.find("<g clip-path=\"url(#c0)\">\n<path stroke=\"#000000\" stroke-width=\"2.4\""), svg.npos)
      << "a unit of the paper is a millimetre: a quarter of it";
  options.layout = L"A4";
  EXPECT_EQ(drawPicture(*drawing, options).failure().reason,
            L"The drawing has no layout \"A4\"; it has: Model, Layout1");
  const base::Result<Picture> empty = drawPicture(*drawingWith("0 LINE|8 NONE|60 1|10 0|20 0|11 1|21 1"), {});
  EXPECT_EQ(empty.failure().reason, L"There is nothing to be seen in \"Model\"");
}

class PictureFiles : public test_support::TempFolder {};

// A letter of one stroke up, six units high, the next one three to the right.
TEST_F(PictureFiles, TextsAreDrawnByTheirFont) {
  const std::string facts = "own\0\x06\x02\x02\0"s, letter = "\0\x01\x08\x00\x06\x02\x08\x03\xFA\0"s;
  std::ofstream(folder_ / "own.shx", std::ios::binary)
      << "x shapes 1.0\r\n\x1A" + "\0\0\xFF\0\2\0"s + "\0\0"s + static_cast<char>(facts.size()) + "\0A\0"s +
             static_cast<char>(letter.size()) + "\0"s + facts + letter + "EOF";
  const auto drawing = drawingWith(kFrame + "0 TEXT|8 0|7 OWN|10 10|20 10|40 12|41 0.5|1 AA");
  PictureOptions options;
  options.fontFolders = {folder_};
  const Picture picture = pictureOf(*drawing, options);
  EXPECT_TRUE(picture.remarks.empty());
  const auto runs = picture.runsOf(picture.shapes.back());
  ASSERT_GE(runs.size(), 2u);
  for (const std::size_t letterNumber : {0, 1}) {
    const auto stroke = picture.pointsOf(runs[runs.size() - 2 + letterNumber]);
    const double x = kMargin + (10 + 3 * static_cast<double>(letterNumber)) * kUnit;
    EXPECT_NEAR(stroke.front().x, x, 0.01);
    EXPECT_NEAR(stroke.front().y - stroke.back().y, 12 * kUnit, 0.01);
  }
}

TEST_F(PictureFiles, APngHasThePaintedPixelsAndTheMarks) {
  const auto drawing =
      drawingWith(kFrame + "0 SOLID|5 40|8 0|62 1|10 10|20 10|11 30|21 10|12 10|22 30|13 30|23 30");
  PictureOptions options;
  options.marked.insert(drawing->findHandle(0x40));
  const base::Result<std::string> bytes = pngBytes(pictureOf(*drawing, options));
  ASSERT_TRUE(bytes) << bytes.failure().text().c_str();
  int width = 0, height = 0, channels = 0;
  stbi_uc* pixels =
      stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.value().data()),
                            static_cast<int>(bytes.value().size()), &width, &height, &channels, 3);
  ASSERT_NE(pixels, nullptr);
  EXPECT_EQ(width, 1000);
  EXPECT_EQ(height, 520);
  const auto pixel = [&](double x, double y) {
    const auto column = static_cast<int>(kMargin + x * kUnit),
               row = static_cast<int>(height - kMargin - y * kUnit);
    const stbi_uc* at = pixels + 3 * (row * width + column);
    return at[0] << 16 | at[1] << 8 | at[2];
  };
  EXPECT_EQ(pixel(20, 20), 0xFF0000) << "the marked one is as bright as ever";
  EXPECT_EQ(pixel(80, 25), 0xFFFFFF);
  EXPECT_LT(pixel(50, 0), 0x808080) << "colour 7 on white";
  const int band = pixel(30.4, 20);
  EXPECT_LT(band >> 8 & 0xFF, 0xC0) << "beside it the mark, which is violet";
  EXPECT_GT(band & 0xFF, 0xE0);
  stbi_image_free(pixels);
}

}  // namespace
}  // namespace cad
