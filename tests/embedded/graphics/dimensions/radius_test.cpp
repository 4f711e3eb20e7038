#include "tests/embedded/graphics/dimensions/fixture.h"

namespace cad {
namespace {

constexpr const char* kRadial = R"(line 588.432922399,44.496411108 579.504855196,35.568343905
text 583.348482182,42.420551074 45
line 569.676494037,25.739982747 577.737088243,33.800576952
arrow 577.737088243,33.800576952 / 579.21022737,35.86297173 579.799483021,35.273716079
point third
point line
)";

constexpr const char* kTextInside = R"(line 621.442431325,25.739982747 646.972305558,25.739982747
text 626.673502266,27.90829789 0
arrow 649.472305558,25.739982747 / 646.972305558,26.156649413 646.972305558,25.32331608
point third
point line
)";

constexpr const char* kOnHook = R"(line 650.344337048,342.359815139 650.385353611,342.226452354
line 650.385353611,342.226452354 650.444353611,342.226452354
arrow 650.32699299,342.416208256 _Open x0.059 107.095609484
text 650.603311945,342.226452354 0
mark 650.249068676,342.523259597 650.339068677,342.523259597
mark 650.294068676,342.478259597 650.294068676,342.568259597
)";

// About the origin; a diametric one through it.
Dim aboutOrigin(DimKind kind, double radius, double degrees, std::string_view settings = {}) {
  Dim dim(kind, settings);
  dim.figure.third = radius * direction(degrees * kRadiansPerDegree);
  if (kind == DimKind::kDiametric) dim.figure.line = -dim.figure.third;
  return dim;
}
Dim radial(double radius, std::string_view settings = {}, double degrees = 0) {
  return aboutOrigin(DimKind::kRadial, radius, degrees, settings);
}
Dim diametric(double radius, std::string_view settings = {}, double degrees = 0) {
  return aboutOrigin(DimKind::kDiametric, radius, degrees, settings);
}

TEST(DimensionRadius, IsDrawnAsElsewhere) {
  Dim above(DimKind::kRadial), inside(DimKind::kDiametric), hooked(DimKind::kDiametric);
  above.figure.line = {569.6764940374901, 25.73998274658328};
  above.figure.third = {577.7370882426746, 33.80057695176783};
  above.figure.box = {8.87619372442, 3.00477489768};
  EXPECT_EQ(shown(above.picture(), true), kRadial);
  inside.figure.line = {603.8746989747631, 25.73998274658328};
  inside.figure.third = {649.4723055577938, 25.73998274658328};
  inside.figure.box = {9.21214188267, 3.08663028649};
  EXPECT_EQ(shown(placed(inside, {626.6735022662784, 25.73998274658328}).picture(), true), kTextInside);
  hooked.figure.line = {650.2611443630883, 342.6303109378232};
  hooked.figure.third = {650.3269929896682, 342.4162082559681};
  hooked.inInches(0.0590000002870665 / 0.118);
  hooked.figure.box = {0.115 * 29 / 6 * hooked.figure.scale, 0.0575};
  EXPECT_EQ(shown(placed(hooked, {650.6033119452222, 342.2264523543784}).picture()), kOnHook);
}

TEST(DimensionRadius, FindsRoomForTextAndArrows) {
  expectPictures(
      {},
      {
          {"inside", radial(20),
           "line 0,0 17.5,0; text 10,1.625 0; arrow 20,0 / 17.5,0.416666667 17.5,-0.416666667"},
          {"inside, on the line", radial(20, "DIMTAD=0"),
           "line 0,0 6.375,0; line 17.5,0 13.625,0; arrow 20,0 / 17.5,0.416666667 17.5,-0.416666667; text "
           "10,0 "
           "0"},
          {"kept outside", radial(20, "DIMTIX=1"),
           "line 32.25,0 22.5,0; text 28.625,1.625 0; line 0,0 20,0; arrow 20,0 / 22.5,0.416666667 "
           "22.5,-0.416666667"},
          {"across", diametric(12),
           "line -9.5,0 9.5,0; text 0,1.625 0; arrow -12,0 / -9.5,0.416666667 -9.5,-0.416666667; arrow 12,0 "
           "/ "
           "9.5,0.416666667 9.5,-0.416666667"},
          {"across, on the line", diametric(12, "DIMTAD=0"),
           "line -9.5,0 -3.625,0; line 9.5,0 3.625,0; arrow -12,0 / -9.5,0.416666667 -9.5,-0.416666667; "
           "arrow "
           "12,0 / 9.5,0.416666667 9.5,-0.416666667; text 0,0 0"},
          {"outside, with a centre mark", radial(8, "DIMTOFL=0 DIMTAD=4"),
           "line 20.25,0 10.5,0; text 16.625,-1.625 0; arrow 8,0 / 10.5,0.416666667 10.5,-0.416666667; mark "
           "-2.5,0 2.5,0; mark 0,-2.5 0,2.5"},
          {"centre lines", diametric(4, "DIMTOFL=0 DIMCEN=-1 DIMTAD=0"),
           "line 9,0 6.5,0; arrow 4,0 / 6.5,0.416666667 6.5,-0.416666667; text 12.625,0 0; mark -1,0 1,0; "
           "mark "
           "0,-1 0,1; mark 2,0 5,0; mark -2,0 -5,0; mark 0,2 0,5; mark 0,-2 0,-5"},
          {"arrows go first", radial(8, "DIMATFIT=1"),
           "line 10.5,0 13,0; line 0,0 8,0; text 4,1.625 0; arrow 8,0 / 10.5,0.416666667 10.5,-0.416666667"},
          {"text goes first", diametric(4, "DIMATFIT=2"),
           "line 16.25,0 4,0; text 12.625,1.625 0; line -1.5,0 1.5,0; arrow -4,0 / -1.5,0.416666667 "
           "-1.5,-0.416666667; arrow 4,0 / 1.5,0.416666667 1.5,-0.416666667"},
          {"over a hook", radial(8, "DIMTOH=1", 60),
           "line 5.25,9.09326674 6.5,11.258330249; line 6.5,11.258330249 16.25,11.258330249; arrow "
           "4,6.92820323 "
           "/ 4.889156082,9.301600073 5.610843918,8.884933406; text 12.625,12.883330249 0; line 0,0 "
           "4,6.92820323"},
          {"too flat for a hook", radial(8, "DIMTOH=1", 10),
           "line 12.802500789,2.25742631 10.340481407,1.823305866; arrow 7.878462024,1.389185421 / "
           "10.268127999,2.233642429 10.412834814,1.412969302; text 16.427500789,2.896611615 0; line 0,0 "
           "7.878462024,1.389185421"},
      });
}

TEST(DimensionRadius, FollowsTheRecord) {
  Dim empty = radial(20);
  empty.figure.value.clear();
  expectPictures(
      {},
      {
          {"a person's text inside, on the line", placed(diametric(12, "DIMTAD=0"), {2, 0}),
           "line 5.625,0 9.5,0; arrow 12,0 / 9.5,0.416666667 9.5,-0.416666667; text 2,0 0"},
          {"a person's text where the arrow would be", placed(radial(12, "DIMTAD=0"), {8, 0}),
           "line 14.5,0 17,0; arrow 12,0 / 14.5,0.416666667 14.5,-0.416666667; text 8,0 0"},
          {"a person's text beyond the centre", placed(radial(12), {-5, 0}),
           "line -8.625,0 9.5,0; text -5,1.625 0; arrow 12,0 / 9.5,0.416666667 9.5,-0.416666667"},
          {"a person's text beyond the far end", placed(diametric(12), {-25, 0}),
           "line -28.625,0 -14.5,0; text -25,1.625 0; line 12,0 -12,0; arrow -12,0 / -14.5,-0.416666667 "
           "-14.5,0.416666667"},
          {"moved with a leader", placed(radial(20, "DIMTMOVE=1"), {2, 12}),
           "line 0,0 17.5,0; line 10,0 8.125,10.375; line 8.125,10.375 -1.625,10.375; arrow 20,0 / "
           "17.5,0.416666667 17.5,-0.416666667; text 2,12 0"},
          {"moved, no room", placed(radial(1, "DIMTMOVE=2"), {-3, 4}),
           "line 3.5,0 6,0; arrow 1,0 / 3.5,0.416666667 3.5,-0.416666667; text -3,4 0"},
          {"without its first half", diametric(12, "DIMSD1=1"),
           "line 9.5,0 0,0; text 0,1.625 0; arrow 12,0 / 9.5,0.416666667 9.5,-0.416666667"},
          {"ticks", diametric(12).heads({L"", true, true}),
           "line -12,0 12,0; text 0,1.625 0; arrow -10.75,1.25 -13.25,-1.25; arrow 10.75,-1.25 13.25,1.25"},
          {"no text", empty, "line 0,0 17.5,0; arrow 20,0 / 17.5,0.416666667 17.5,-0.416666667"},
          {"smaller than the arrow", radial(0.5),
           "line 12.75,0 3,0; text 9.125,1.625 0; line 0,0 0.5,0; arrow 0.5,0 / 3,0.416666667 "
           "3,-0.416666667"},
      });
}

TEST(DimensionRadius, ChangesWhatAVariableGoverns) {
  expectChanges("outside", radial(8, "DIMTOFL=0", 30),
                {{"DIMASZ=3", "line arrow text"},
                 {"DIMGAP=1", "line text"},
                 {"DIMGAP=-0.625", "line"},
                 {"DIMCEN=1", "mark"},
                 {"DIMCEN=0", "mark"},
                 {"DIMCEN=-1", "mark"},
                 {"DIMSD2=1", "line arrow"}});
  expectChanges("inside", radial(20, {}, 30), {{"DIMTIH=1", "line text"}});
  expectChanges("across", diametric(12, "DIMTAD=0"), {{"DIMTVP=1", "line text"}});
}

TEST(DimensionRadius, SurvivesDegenerateRecords) {
  for (const DimKind kind : {DimKind::kRadial, DimKind::kDiametric}) {
    expectNumbers(aboutOrigin(kind, 8, 30, "DIMTOH=1 DIMTOFL=0"), [](DimFigure& figure) {
      return std::array{&figure.third.x,   &figure.line.y, &figure.text.x,
                        &figure.box.width, &figure.scale,  &figure.horizontal};
    });
  }
  EXPECT_TRUE(radial(0).picture().empty());
  EXPECT_TRUE(diametric(0).picture().empty());
}

}  // namespace
}  // namespace cad
