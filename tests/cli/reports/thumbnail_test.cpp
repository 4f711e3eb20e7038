// What a thumbnail shows is what a reader of PNG files sees in it.

#include "cli/reports/thumbnail.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>

#include "cli/reports/indexed_png.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace kivcli {
namespace {

ColorImage decoded(const std::string& png) {
  ColorImage image;
  int channels = 0;
  const std::unique_ptr<stbi_uc, void (*)(void*)> bytes(
      stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(png.data()), static_cast<int>(png.size()),
                            &image.width, &image.height, &channels, 3),
      stbi_image_free);
  if (bytes == nullptr) return {};
  for (int i = 0; i < image.width * image.height; ++i) {
    const stbi_uc* at = bytes.get() + 3 * i;
    image.pixels.push_back(static_cast<std::uint32_t>(at[0] << 16 | at[1] << 8 | at[2]));
  }
  return image;
}

TEST(IndexedPng, KeepsFewColoursExactlyAndManyNearly) {
  for (const int colors : {1, 2, 3, 16, 17, 256}) {
    ColorImage image{7, 41, {}};
    for (int i = 0; i < 7 * 41; ++i) image.pixels.push_back(static_cast<std::uint32_t>(i % colors * 65793));
    EXPECT_EQ(decoded(indexedPng(image)).pixels, image.pixels) << colors;
  }
  ColorImage many{40, 40, {}};
  for (std::uint32_t i = 0; i < 1600; ++i) many.pixels.push_back(i * 10487);
  const ColorImage seen = decoded(indexedPng(many));
  ASSERT_EQ(seen.pixels.size(), many.pixels.size());
  for (std::size_t i = 0; i < many.pixels.size(); ++i)
    for (const int shift : {16, 8, 0})
      EXPECT_LE(std::abs(int(seen.pixels[i] >> shift & 0xFF) - int(many.pixels[i] >> shift & 0xFF)), 26) << i;
}

class ThumbnailTest : public ::testing::Test {
 protected:
  void SetUp() override { picture_.width = 100, picture_.height = 50; }
  void add(std::vector<cad::PictureShape>& shapes, cad::PictureShape look,
           std::vector<std::vector<cad::PicturePoint>> runs, bool closed = true) {
    look.first = static_cast<std::uint32_t>(picture_.runs.size());
    look.count = static_cast<std::uint32_t>(runs.size());
    for (const auto& run : runs) {
      picture_.runs.push_back({static_cast<std::uint32_t>(picture_.points.size()),
                               static_cast<std::uint32_t>(run.size()), closed});
      picture_.points.insert(picture_.points.end(), run.begin(), run.end());
    }
    shapes.push_back(look);
  }
  static std::vector<cad::PicturePoint> box(float left, float top, float right, float bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
  }
  std::uint32_t at(int x, int y) {
    const ColorImage image = decoded(thumbnail(picture_, 1'000'000));
    EXPECT_EQ(image.width, 100);
    return image.pixels.empty() ? 0 : image.pixels[static_cast<std::size_t>(y * image.width + x)];
  }

  cad::Picture picture_;
};

TEST_F(ThumbnailTest, ShowsAreasWithHolesClippedOrThroughOthers) {
  add(picture_.shapes, {.color = 0x00FF00}, {box(10, 10, 40, 40), box(20, 20, 30, 30)});
  add(picture_.shapes, {.color = 0x0000FF, .evenOdd = false}, {box(50, 10, 80, 40), box(60, 20, 70, 30)});
  add(picture_.clips, {}, {box(0, 0, 100, 15)});
  add(picture_.shapes, {.clip = 0, .color = 0xFF0000}, {box(-1e6F, 5, 1e6F, 45)});
  add(picture_.shapes, {.color = 0, .opacity = 128}, {box(90, 0, 100, 50)});
  EXPECT_EQ(at(15, 30), 0x00FF00U);
  EXPECT_EQ(at(25, 25), 0xFFFFFFU) << "hole";
  EXPECT_EQ(at(65, 25), 0x0000FFU) << "filled by the non-zero rule";
  EXPECT_EQ(at(15, 12), 0xFF0000U);
  EXPECT_EQ(at(15, 17), 0x00FF00U) << "outside of the clip";
  EXPECT_EQ(at(95, 30) >> 16, 0x7FU);
}

TEST_F(ThumbnailTest, ShowsLinesAndSurvivesNumbersThatAreNone) {
  const float nan = std::numeric_limits<float>::quiet_NaN(), far = std::numeric_limits<float>::max();
  add(picture_.shapes, {.color = 0xFF0000, .width = 1},
      {{{0, 25.5F}, {nan, 3}, {100, 25.5F}}, {{far, -far}, {-far, far}}}, false);
  add(picture_.shapes, {.color = 0x0000FF, .width = 10}, {{{50, -1e6F}, {50, 1e6F}}}, false);
  add(picture_.shapes, {.color = 0x00FF00, .width = 4}, {{{20, 10}}}, false);
  EXPECT_EQ(at(10, 25), 0xFF0000U);
  EXPECT_EQ(at(10, 23), 0xFFFFFFU);
  EXPECT_EQ(at(46, 5), 0x0000FFU);
  EXPECT_EQ(at(43, 5), 0xFFFFFFU);
  EXPECT_EQ(at(20, 10), 0x00FF00U) << "a dot";
}

TEST_F(ThumbnailTest, ABandLiesBehindWhatIsMarkedAndOneSheetDoesNotAddUp) {
  const std::vector<cad::PicturePoint> line = {{20, 25}, {80, 25}};
  picture_.haloOpacity = 128;
  for (int times = 0; times < 3; ++times)
    add(picture_.halos, {.color = 0x000000, .width = 14}, {line, line}, false);
  add(picture_.halos, {.color = 0x0000FF, .width = 10}, {line}, false);
  add(picture_.markedShapes, {.color = 0xFFFF00, .width = 2}, {line}, false);
  EXPECT_EQ(at(50, 25), 0xFFFF00U);
  EXPECT_EQ(at(50, 22), 0x7F7FFFU);
  EXPECT_EQ(at(50, 19), 0x7F7F7FU);
  EXPECT_EQ(at(50, 16), 0xFFFFFFU);
}

TEST_F(ThumbnailTest, GetsSmallerWhereThereIsLittleRoom) {
  picture_.width = 480, picture_.height = 400;
  for (int i = 0; i < 3000; ++i) {
    const auto value = [&](int factor, int most) { return static_cast<float>(i * factor % most); };
    add(picture_.shapes, {.color = static_cast<cad::Rgb>(i * 7919), .width = 1},
        {{{value(37, 480), value(61, 400)}, {value(83, 480), value(29, 400)}}}, false);
  }
  const std::string whole = thumbnail(picture_, 1'000'000), small = thumbnail(picture_, 20'000);
  EXPECT_EQ(decoded(whole).width, 480);
  EXPECT_GT(whole.size(), 60'000U);
  EXPECT_LE(small.size(), 20'000U);
  EXPECT_GE(decoded(small).width, 160);
  EXPECT_EQ(decoded(thumbnail(picture_, 1)).width, 96);
}

}  // namespace
}  // namespace kivcli
