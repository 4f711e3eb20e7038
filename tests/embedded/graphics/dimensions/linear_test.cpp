#include "tests/embedded/graphics/dimensions/fixture.h"

namespace cad {
namespace {

Dim rotated(Vec first, Vec second, Vec line, std::string_view settings = {}, double degrees = 0) {
  Dim dim(DimKind::kRotated, settings);
  dim.figure.first = first;
  dim.figure.second = second;
  dim.figure.line = line;
  dim.figure.rotation = degrees * kRadiansPerDegree;
  return dim;
}

Dim aligned(Vec first, Vec second, Vec line, std::string_view settings = {}) {
  Dim dim = rotated(first, second, line, settings);
  dim.figure.kind = DimKind::kAligned;
  return dim;
}

// Between origins on the x axis, on a line 10 above.
Dim across(double length, std::string_view settings = {}) {
  return rotated({0, 0}, {length, 0}, {length, 10}, settings);
}

Dim inches(Vec first, Vec second, Vec line, double degrees) {
  Dim dim = rotated(first, second, line, {}, degrees);
  dim.figure.box = {0.2, 0.0575};
  return dim.inInches();
}

// Beside the plain picture, 40 wide.
void expectAll(std::initializer_list<Placed> cases) { expectPictures(across(40).picture(), cases); }

TEST(DimensionLinear, IsDrawnAsElsewhere) {
  Dim sloping = rotated({330.2890594765795, 2.941179455067986}, {364.4872644138525, 37.13938439234094},
                        {360.3581002235253, 44.29130656278148}, {}, 30);
  sloping.figure.box = {8.5112551159618, 3.00477489768};
  Dim strokes = aligned({381.5863668824889, 8.640880277946811}, {415.7845718197619, 42.83908521521976},
                        {410.084870996883, 48.5387860380986}, "DIMEXE=2 DIMDLE=2");
  strokes.figure.box = {10.3967712597, 5.05286493861};
  Dim horizontal = aligned({35.99986995979099, -123.0390274605079}, {40.99986995979099, -118.0390274605079},
                           {40.15483731435771, -117.1939948150746});
  horizontal.variables = DimVariables();
  horizontal.figure.box = {0.711036834925, 0.18380627558};
  EXPECT_EQ(shown(across(40).picture(), true),
            R"(ext1 0,0.625 0,11.25
ext2 40,0.625 40,11.25
line 2.5,10 37.5,10
arrow 0,10 / 2.5,10.416666667 2.5,9.583333333
arrow 40,10 / 37.5,10.416666667 37.5,9.583333333
text 20,11.625 0
point first
point second
point line
)");
  expectAll({
      {"along a sloping line", sloping,
       "ext1 329.976559477,3.482445332 319.276189401,22.016029963; ext2 364.174764414,37.68065027 "
       "359.733100224,45.373838318; line 322.06625291,22.183498209 358.193036714,43.041306563; arrow "
       "319.901189401,20.933498209 / 321.857919577,22.544342127 322.274586244,21.82265429; arrow "
       "360.358100224,44.291306563 / 357.984703381,43.402150481 358.401370047,42.680462645; text "
       "339.065951088,34.45477396 30"},
      {"strokes, a stacked fraction", strokes.heads({L"_ArchTick", false, true}),
       "ext1 381.144425144,9.082822016 374.472452497,15.754794663; ext2 415.342630082,43.281026953 "
       "408.670657435,49.9529996; line 374.472452497,12.926367538 411.499084559,49.9529996; arrow "
       "375.88666606,14.340581101 _ArchTick x2.5 225; arrow 410.084870997,48.538786038 _ArchTick x2.5 45; "
       "text 390.757369259,33.668082839 45"},
      {"horizontal text on a sloping line", horizontal,
       "ext1 35.955675786,-122.994833287 35.027558094,-122.066715594; ext2 40.955675786,-117.994833287 "
       "40.027558094,-117.066715594; line 35.282116535,-122.066715594 37.472934177,-119.875897953; line "
       "40.027558094,-117.321274036 37.836740452,-119.512091677; arrow 35.154837314,-122.193994815 / "
       "35.260903332,-122.045502391 35.303329738,-122.087928798; arrow 40.154837314,-117.193994815 / "
       "40.00634489,-117.300060832 40.048771297,-117.342487239; text 37.654837314,-119.693994815 0"},
      {"horizontal text on a hook", inches({0, 0.125}, {0, 0}, {0.012, 0}, 90),
       "ext1 0.05,0.125 0.042,0.125; ext2 0.05,0 0.042,0; line 0.012,0.184 0.012,0.243; line 0.012,-0.059 "
       "0.012,-0.118; line 0.012,-0.118 -0.047,-0.118; arrow 0.012,0.125 _Open x0.059 270; arrow 0.012,0 "
       "_Open x0.059 90; text -0.167,-0.118 0"},
      {"a person's text, by its height", placed(inches({0, 0}, {0, 0.125}, {0.1, 0}, 90), {-0.1, -0.14}),
       "ext1 0.05,0 0.13,0; ext2 0.05,0.125 0.13,0.125; line 0.1,0.184 0.1,0.243; line 0.1,-0.059 0.1,-0.14; "
       "line 0.1,-0.14 0.041,-0.14; arrow 0.1,0.125 _Open x0.059 270; arrow 0.1,0 _Open x0.059 90; text "
       "-0.079,-0.14 0"},
      {"a person's text on the first side", placed(inches({0, 0}, {0.225, 0.03}, {0, 0.3}, 0), {-0.1, 0.3}),
       "ext1 0,0.05 0,0.33; ext2 0.225,0.08 0.225,0.33; line 0.284,0.3 0.343,0.3; line -0.059,0.3 "
       "-0.118,0.3; arrow 0.225,0.3 _Open x0.059 180; arrow 0,0.3 _Open x0.059 0; text -0.238,0.3 0"},
      {"a person's text inside, arrows outside",
       placed(inches({0, 0}, {0.3, 0}, {0, 0.16}, 0), {0.145, 0.16}),
       "ext1 0,0.05 0,0.19; ext2 0.3,0.05 0.3,0.19; line -0.059,0.16 -0.118,0.16; line 0.359,0.16 "
       "0.418,0.16; arrow 0,0.16 _Open x0.059 0; arrow 0.3,0.16 _Open x0.059 180; text 0.145,0.16 0"},
      {"a person's text inside", placed(inches({0, 0}, {0, 0.97}, {0.58, 0}, 90), {0.58, 0.4}),
       "ext1 0.05,0 0.61,0; ext2 0.05,0.97 0.61,0.97; line 0.58,0.059 0.58,0.35125; line 0.58,0.911 "
       "0.58,0.44875; arrow 0.58,0 _Open x0.059 270; arrow 0.58,0.97 _Open x0.059 90; text 0.58,0.4 0"},
  });
}

TEST(DimensionLinear, FindsRoomForTextAndArrows) {
  expectAll({
      {"strokes outside", across(3).heads({L"_Oblique", false, true}),
       "ext2 3,0.625 3,11.25; line 0,10 -2.5,10; line 3,10 15.25,10; line 0,10 3,10; arrow 0,10 _Oblique "
       "x2.5 0; arrow 3,10 _Oblique x2.5 180; text 11.625,11.625 0"},
      {"no arrow room, against the line's direction", rotated({3, 0}, {0, 0}, {0, 0}),
       "line 5.5,0 8,0; line -2.5,0 -12.25,0; line 3,0 0,0; arrow 3,0 / 5.5,0.416666667 5.5,-0.416666667; "
       "arrow 0,0 / -2.5,0.416666667 -2.5,-0.416666667; text -8.625,1.625 0"},
      {"arrows alone inside", across(8, "DIMATFIT=2"),
       "ext2 8,0.625 8,11.25; line 2.5,10 5.5,10; line 8,10 20.25,10; arrow 8,10 / 5.5,10.416666667 "
       "5.5,9.583333333; text 16.625,11.625 0"},
      {"over the line", across(3, "DIMTMOVE=2"),
       "ext2 3,0.625 3,11.25; line -2.5,10 -5,10; line 5.5,10 8,10; line 0,10 3,10; arrow 0,10 / "
       "-2.5,10.416666667 -2.5,9.583333333; arrow 3,10 / 5.5,10.416666667 5.5,9.583333333; text 1.5,11.625 "
       "0"},
      {"on a leader", across(3, "DIMTMOVE=1"),
       "ext2 3,0.625 3,11.25; line -2.5,10 -5,10; line 5.5,10 8,10; line 0,10 3,10; line 1.5,10 6.5,15; line "
       "6.5,15 16.25,15; arrow 0,10 / -2.5,10.416666667 -2.5,9.583333333; arrow 3,10 / 5.5,10.416666667 "
       "5.5,9.583333333; text 12.625,16.625 0"},
      {"kept inside, without arrows", across(3, "DIMTIX=1 DIMSOXD=1"),
       "ext2 3,0.625 3,11.25; line 0,10 3,10; text 1.5,11.625 0"},
      {"beyond the second line", placed(across(40), {52, 10}), "line 40,10 55.625,10; text 52,11.625 0"},
      {"moved off with a leader", placed(across(40, "DIMTMOVE=1"), {30, 25}),
       "line 20,10 23.875,23.375; line 23.875,23.375 33.625,23.375; text 30,25 0"},
      {"moved off freely", placed(across(40, "DIMTMOVE=2 DIMTAD=0"), {30, 25}), "text 30,25 0"},
      {"over the second extension line", across(40, "DIMJUST=4"),
       "ext2 40,0.625 40,17.25; text 38.375,13.625 90"},
      {"above a hook", rotated({0, 0}, {3, 3}, {-4, 10}, "DIMTOH=1", 45),
       "ext1 -0.441941738,0.441941738 -7.883883476,7.883883476; ext2 2.558058262,3.441941738 "
       "-4.883883476,10.883883476; line -8.767766953,5.232233047 -10.535533906,3.464466094; line "
       "-2.232233047,11.767766953 -0.464466094,13.535533906; line -0.464466094,13.535533906 "
       "9.285533906,13.535533906; line -7,7 -4,10; arrow -7,7 / -9.062394778,5.526860873 "
       "-8.473139127,4.937605222; arrow -4,10 / -2.526860873,12.062394778 -1.937605222,11.473139127; text "
       "5.660533906,15.160533906 0"},
  });
}

TEST(DimensionLinear, FollowsTheRecord) {
  constexpr double kQuarter = std::numbers::pi / 2;
  Dim leaning = across(40), turned = across(40), upright = across(40, "DIMTIH=1"),
      empty = across(40, "DIMTAD=0");
  leaning.figure.oblique = kQuarter / 2;
  turned.figure.textRotation = kQuarter;
  upright.figure.horizontal = -kQuarter;
  empty.figure.value.clear();
  Dim parted = across(40, "DIMTAD=0");
  parted.figure.box.parting = 0.5;
  Dim mixed = across(40, "DIMDLE=2");
  mixed.figure.arrows = {ArrowHead{L"_ArchTick", false, true}, ArrowHead{L"_Dot", false, false}};
  Dim ticks = across(40, "DIMTSZ=2 DIMDLE=1");
  ticks.heads({L"", true, true});
  expectAll({
      {"ticks", ticks, "line -1,10 41,10; arrow 2,12 -2,8; arrow 38,8 42,12"},
      {"leaning extension lines", leaning,
       "ext1 0.441941738,0.441941738 10.883883476,10.883883476; ext2 40.441941738,0.441941738 "
       "50.883883476,10.883883476; line 12.5,10 47.5,10; arrow 10,10 / 12.5,10.416666667 12.5,9.583333333; "
       "arrow 50,10 / 47.5,10.416666667 47.5,9.583333333; text 30,11.625 0"},
      {"text turned by hand", turned, "text 20,13.625 90"},
      {"another horizontal", upright, "line 2.5,10 18.375,10; line 37.5,10 21.625,10; text 20,10 90"},
      {"no text", empty, ""},
      {"text above and below the line", parted, "text 20,10.5 0"},
      {"read from the right", across(40, "DIMTXTDIRECTION=1"), "text 20,11.625 180"},
      {"an arrow for each end", mixed,
       "line -2,10 37.5,10; arrow 0,10 _ArchTick x2.5 180; arrow 40,10 _Dot x2.5 0"},
      {"an origin on the line, one nearer than the offset", rotated({0, 10}, {40, 9.5}, {0, 10}),
       "ext2 40,10.125 40,11.25"},
      {"framed, half of the line", across(40, "DIMGAP=-0.625 DIMTAD=0 DIMSD1=1"),
       "line 37.5,10 23.625,10; text 20,10 0; line 16.375,8.375 23.625,8.375; line 23.625,8.375 "
       "23.625,11.625; line 23.625,11.625 16.375,11.625; line 16.375,11.625 16.375,8.375"},
  });
}

TEST(DimensionLinear, ChangesWhatAVariableGoverns) {
  expectChangesBetweenLines(across(40), across(3));
  expectChanges("sloping, below", rotated({0, 0}, {40, 10}, {30, -30}, {}, 30), {{"DIMTAD=2", "text"}});
}

TEST(DimensionLinear, SurvivesDegenerateRecords) {
  for (const DimKind kind : {DimKind::kRotated, DimKind::kAligned, DimKind::kOrdinate}) {
    Dim dim = across(40, "DIMTAD=0");
    dim.figure.kind = kind;
    expectNumbers(dim, [](DimFigure& figure) {
      return std::array{&figure.second.x, &figure.line.y,    &figure.text.x, &figure.rotation,
                        &figure.oblique,  &figure.box.width, &figure.scale,  &figure.horizontal};
    });
  }
  EXPECT_TRUE(isFinite(across(0).picture()));
  EXPECT_TRUE(isFinite(rotated({}, {}, {}).picture()));
}

}  // namespace
}  // namespace cad
