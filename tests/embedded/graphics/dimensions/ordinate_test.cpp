#include "tests/embedded/graphics/dimensions/fixture.h"

namespace cad {
namespace {

Dim ordinate(Vec feature, Vec end, bool alongX = false, std::string_view settings = {}) {
  Dim dim(DimKind::kOrdinate, settings);
  dim.figure.first = feature;
  dim.figure.second = end;
  dim.figure.alongX = alongX;
  return dim;
}

TEST(DimensionOrdinate, IsDrawnAsElsewhere) {
  EXPECT_EQ(shown(ordinate({0, 0}, {40, 6}).picture(), true),
            R"(ext1 0.625,0 30,0
ext1 30,0 35,6
ext1 35,6 46.625,6
text 43.625,7.625 0
point first
point second
point line
)");
  EXPECT_EQ(
      newParts(ordinate({100, 0}, {120, -40}, true).picture(), {}),
      "ext1 100,-0.625 100,-30; ext1 100,-30 120,-35; ext1 120,-35 120,-46.625; text 118.375,-43.625 90");
}

TEST(DimensionOrdinate, FollowsPointsAndVariables) {
  Dim turned = ordinate({0, 0}, {0, 40});
  turned.figure.horizontal = -std::numbers::pi / 2;
  Dim empty = ordinate({0, 0}, {40, 6});
  empty.figure.value.clear();
  expectPictures(
      ordinate({0, 0}, {40, 6}).picture(),
      {
          {"straight", ordinate({0, 0}, {40, 0}), "ext1 0.625,0 46.625,0; text 43.625,1.625 0"},
          {"straight along another horizontal", turned, "ext1 0,0.625 0,46.625; text -1.625,43.625 90"},
          {"too short for two knees", ordinate({0, 0}, {8, 6}),
           "ext1 0.625,0 3,6; ext1 3,6 14.625,6; text 11.625,7.625 0"},
          {"shorter than the offset", ordinate({0, 0}, {0.5, 6}),
           "ext1 0.5,0 0.5,6; ext1 0.5,6 7.125,6; text 4.125,7.625 0"},
          {"to the left", ordinate({0, 0}, {-40, 6}),
           "ext1 -0.625,0 -30,0; ext1 -30,0 -35,6; ext1 -35,6 -46.625,6; text -43.625,7.625 0"},
          {"text after the line", ordinate({0, 0}, {40, 6}, false, "DIMTAD=0"),
           "ext1 35,6 40,6; text 43.625,6 0"},
          {"text below", ordinate({0, 0}, {40, 6}, false, "DIMTAD=4"), "text 43.625,4.375 0"},
          {"a person's place, which does not count", placed(ordinate({0, 0}, {40, 6}), {7, 7}), ""},
          {"horizontal texts, which do not either",
           ordinate({0, 0}, {40, 6}, false, "DIMTIH=1 DIMTOH=1 DIMSE1=1"), ""},
          {"no text", empty, "ext1 35,6 40,6"},
      });
}

}  // namespace
}  // namespace cad
