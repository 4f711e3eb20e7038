#include "tests/embedded/graphics/dimensions/fixture.h"

namespace cad {
namespace {

constexpr const char* kBetweenLines = R"(ext1 513.27241287,8.443237924 528.965659585,3.212155686
ext2 501.431668929,37.745723455 504.115496014,48.481031798
line 495.58038334,14.340581101 r33.941171082 345.786232829 71.74257488
arrow 527.779805462,3.607440393 / 528.882361389,5.889540641 528.08262315,6.123769577
arrow 503.812326483,47.268353672 / 506.097831901,46.172873825 506.329581829,46.973333952
text 527.000217858,31.588370182 -61.235596145
point arc
point third
point first
point second
point line
)";

constexpr const char* kByPoints = R"(ext1 456.275404641,8.443237924 472.660009543,2.981702957
ext2 444.4346607,37.745723455 447.29523696,49.188028497
line 438.583375111,14.340581101 r34.669926599 345.697465466 71.831342243
arrow 471.474155421,3.376987664 / 472.578478826,5.658233142 471.77892227,5.893081518
arrow 446.992067429,47.975350372 / 449.278420765,46.8816413 449.509550554,47.68228071
text 470.64204095,31.939054011 -61.235596145
point third
point first
point second
point line
)";

constexpr const char* kBrokenByHorizontalText = R"(ext1 650.552369947,342.374129289 650.7886367,342.237720615
ext2 650.552369947,342.672389905 650.7886367,342.808798579
line 650.294068676,342.523259597 r0.541077963 336.250722119 8.874991654
line 650.294068676,342.523259597 r0.541077963 19.540615725 23.749277881
arrow 650.762655938,342.252720615 _Open x0.059 243.12536106
arrow 650.762655938,342.793798579 _Open x0.059 116.87463894
text 650.818741308,342.655486645 0
)";

Dim betweenLines(Vec first, Vec second, Vec third, Vec line, Vec arc) {
  Dim dim(DimKind::kAngular);
  dim.figure.first = first;
  dim.figure.second = second;
  dim.figure.third = third;
  dim.figure.line = line;
  dim.figure.arc = arc;
  return dim;
}

// About the origin, between points 8 away from it.
Dim aboutOrigin(double radius, double from, double sweep, std::string_view settings = {}) {
  const auto ray = [](double degrees) { return direction(degrees * kRadiansPerDegree); };
  Dim dim(DimKind::kAngularPoints, settings);
  dim.figure.first = 8 * ray(from);
  dim.figure.second = 8 * ray(from + sweep);
  dim.figure.line = radius * ray(from + sweep / 2);
  return dim;
}

TEST(DimensionAngular, IsDrawnAsElsewhere) {
  Dim lines = betweenLines({495.5803833400654, 14.34058110082563}, {501.2800841629442, 37.13938439234094},
                           {495.5803833400654, 14.34058110082563}, {512.6794858087018, 8.640880277946811},
                           {528.6474703372946, 21.99374070687125});
  Dim points(DimKind::kAngularPoints);
  points.figure.first = {455.6824775799136, 8.640880277946811};
  points.figure.second = {444.283075934156, 37.13938439234094};
  points.figure.third = {438.5833751112772, 14.34058110082563};
  points.figure.line = {472.3604500468276, 22.15806274137023};
  lines.figure.box = points.figure.box = {4.90450204638, 2.55286493861};
  EXPECT_EQ(shown(lines.picture(), true), kBetweenLines);
  EXPECT_EQ(shown(points.picture(), true), kByPoints);
  Dim inches =
      placed(betweenLines({650.391063521602, 342.5792595968957}, {650.5090686763781, 342.6473899047715},
                          {650.391063521602, 342.4672595968957}, {650.5090686763781, 342.3991292890197},
                          {650.8269264495727, 342.4293023946014}),
             {650.8187413077677, 342.6554866447631});
  constexpr double kScale = 0.0590000002870665 / 0.118;
  inches.inInches(kScale).set("DIMTOH=0");
  inches.figure.box = {0.2875 * kScale, 0.115 * kScale};
  EXPECT_EQ(shown(inches.picture()), kBrokenByHorizontalText);
}

// Which of the four angles of lines along the axes, and from where the extension lines come.
TEST(DimensionAngular, MeasuresTheAngleThatHoldsThePlaceOfTheArc) {
  const auto lines = [](Dim dim) {
    return joined(dim.picture(), [](const DimPart& part) { return part.role < DimPart::Role::kArrow; });
  };
  const auto drawn = [&](Vec arc) { return lines(betweenLines({2, 0}, {30, 0}, {0, -3}, {0, 6}, arc)); };
  EXPECT_EQ(drawn({12, 16}), "ext2 0,6.625 0,21.25; line 0,0 r20 7.166643397 82.833356603");
  EXPECT_EQ(drawn({-12, 16}),
            "ext1 0,6.625 0,21.25; ext2 1.375,0 -21.25,0; line 0,0 r20 97.166643397 172.833356603");
  EXPECT_EQ(drawn({-12, -16}),
            "ext1 1.375,0 -21.25,0; ext2 0,-3.625 0,-21.25; line 0,0 r20 187.166643397 262.833356603");
  EXPECT_EQ(drawn({12, -16}), "ext1 0,-3.625 0,-21.25; line 0,0 r20 277.166643397 352.833356603");
  EXPECT_EQ(lines(aboutOrigin(12, 0, 250)),
            "ext1 8.625,0 13.25,0; ext2 -2.949923736,-8.104848854 -4.531766899,-12.450927225; line 0,0 r12 "
            "11.958313593 238.041686407");
  EXPECT_EQ(lines(aboutOrigin(1, 0, 90, "DIMTIX=1 DIMSOXD=1")),
            "ext1 7.375,0 0,0; ext2 0,7.375 0,0; line 0,0 r1 0 90");
}

// Beside the plain picture, a quarter of a circle.
void expectAll(std::initializer_list<Placed> cases) {
  expectPictures(aboutOrigin(20, 0, 90).picture(), cases);
}

TEST(DimensionAngular, FindsRoomForTextAndArrows) {
  expectAll({
      {"on the arc", aboutOrigin(20, 0, 90, "DIMTAD=0"),
       "line 0,0 r20 7.166643397 34.557422766; line 0,0 r20 55.442577234 82.833356603; text "
       "14.142135624,14.142135624 -45"},
      {"away from what is measured", aboutOrigin(20, 225, 90, "DIMTAD=2"),
       "ext1 -6.098795988,-6.098795988 -15.0260191,-15.0260191; ext2 6.098795988,-6.098795988 "
       "15.0260191,-15.0260191; line 0,0 r20 232.166643397 307.833356603; arrow -14.142135624,-14.142135624 "
       "/ -12.542976863,-16.108427151 -11.991701706,-15.483495037; arrow 14.142135624,-14.142135624 / "
       "11.991701706,-15.483495037 12.542976863,-16.108427151; text 0,-21.625 0"},
      {"no room: beyond end 2", aboutOrigin(20, 0, 12),
       "ext2 8.436523056,1.793238333 20.785636516,4.41812343; line 0,0 r20 345.666713206 352.833356603; line "
       "0,0 r20 19.166643397 47.103006867; line 0,0 r20 0 12; arrow 20,0 / 19.427897932,-2.469070743 "
       "20.259602068,-2.521154076; arrow 19.562952015,4.158233816 / 19.292703748,6.678268932 "
       "18.490003076,6.454402731; text 17.334304236,12.929134606 -53.281853169"},
      {"no room, horizontal", aboutOrigin(20, 0, 12, "DIMTOH=1"),
       "ext2 8.436523056,1.793238333 20.785636516,4.41812343; line 0,0 r20 345.666713206 352.833356603; line "
       "0,0 r20 19.166643397 26.333286794; line 0,0 r20 0 12; arrow 20,0 / 19.427897932,-2.469070743 "
       "20.259602068,-2.521154076; arrow 19.562952015,4.158233816 / 19.292703748,6.678268932 "
       "18.490003076,6.454402731; text 14.299577413,8.87183885 0"},
      {"no room, kept", aboutOrigin(20, 0, 12, "DIMTIX=1 DIMSOXD=1"),
       "ext2 8.436523056,1.793238333 20.785636516,4.41812343; line 0,0 r20 0 12; text "
       "21.506535987,2.260428018 -84"},
      {"no room, leader", aboutOrigin(20, 0, 12, "DIMTMOVE=1"),
       "ext2 8.436523056,1.793238333 20.785636516,4.41812343; line 0,0 r20 345.666713206 352.833356603; line "
       "0,0 r20 19.166643397 26.333286794; line 0,0 r20 0 12; line 19.890437907,2.090569265 "
       "25.385689701,-2.359397895; line 25.385689701,-2.359397895 26.404842217,-12.055986375; arrow 20,0 / "
       "19.427897932,-2.469070743 20.259602068,-2.521154076; arrow 19.562952015,4.158233816 / "
       "19.292703748,6.678268932 18.490003076,6.454402731; text 27.642024618,-8.280985751 -84"},
      {"room for arrows", aboutOrigin(20, 0, 22, "DIMATFIT=2"),
       "ext2 7.996960746,3.230981868 19.70265691,7.96039011; line 0,0 r20 7.166643397 14.833356603; line 0,0 "
       "r20 22 57.103006867; arrow 18.543677091,7.492131868 / 18.93816347,4.988536133 "
       "19.728816878,5.25180716; text 14.825836541,15.742782342 -43.281853169"},
      {"room for the text", aboutOrigin(20, 0, 22),
       "ext2 7.996960746,3.230981868 19.70265691,7.96039011; line 0,0 r20 345.666713206 352.833356603; line "
       "0,0 r20 29.166643397 36.333286794; line 0,0 r20 0 22; arrow 20,0 / 19.427897932,-2.469070743 "
       "20.259602068,-2.521154076; arrow 18.543677091,7.492131868 / 17.839934998,9.926953869 "
       "17.08830311,9.56710119; text 21.227687842,4.126244525 -79"},
      {"a small circle", aboutOrigin(1.5, 0, 40),
       "ext1 7.375,0 0.25,0; ext2 5.649577768,4.740558621 0.191511111,0.160696902; line 0,0 r1.5 240 300; "
       "line 0,0 r1.5 100 160; line 0,0 r1.5 0 40; arrow 1.5,0 / -0.110843918,-1.956730176 "
       "0.610843918,-2.373396843; arrow 1.149066665,0.964181415 / -1.057656494,2.210770365 "
       "-1.34267328,1.427693181; text -2.649361951,-2.893355535 70"},
  });
}

TEST(DimensionAngular, FollowsTheRecord) {
  Dim turned = aboutOrigin(20, 0, 90), empty = aboutOrigin(20, 0, 90, "DIMTAD=0");
  turned.figure.textRotation = std::numbers::pi / 2;
  empty.figure.value.clear();
  expectAll({
      {"a person's text before end 1", placed(aboutOrigin(20, 0, 90), 10 * direction(-0.5)),
       "line 0,0 r20 320.967250207 0; text 16.125579575,-8.809444272 61.352110243"},
      {"a person's text beyond end 2, on the arc", placed(aboutOrigin(20, 0, 90, "DIMTAD=0"), {-12, 16}),
       "line 0,0 r20 90 116.427320412; text -12,16 36.869897646"},
      {"moved with a leader", placed(aboutOrigin(20, 0, 90, "DIMTMOVE=1"), {30, 20}),
       "line 14.142135624,14.142135624 25.25037957,24.194920234; line 25.25037957,24.194920234 "
       "30.658706483,16.082429864; text 30,20 -56.309932474"},
      {"next to the first extension line", aboutOrigin(20, 0, 90, "DIMJUST=1"),
       "text 19.643626335,9.042597492 -65.281853169"},
      {"over the second extension line", aboutOrigin(20, 0, 90, "DIMJUST=4"),
       "ext2 0,8.625 0,27.25; text -1.625,23.625 90"},
      {"turned by hand", turned, "text 16.584077362,16.584077362 90"},
      {"no text", empty, ""},
      {"half of it", aboutOrigin(20, 0, 90, "DIMSD1=1"), "line 0,0 r20 45 82.833356603"},
      {"strokes", aboutOrigin(20, 0, 90, "DIMDLE=2").heads({L"_ArchTick", false, true}),
       "line 0,0 r20 0 90; arrow 20,0 _ArchTick x2.5 273.583321698; arrow 0,20 _ArchTick x2.5 176.416678302"},
  });
}

TEST(DimensionAngular, ChangesWhatAVariableGoverns) {
  expectChangesBetweenLines(aboutOrigin(20, 30, 90), aboutOrigin(20, 30, 12));
  expectChanges("wide", aboutOrigin(20, 30, 90), {{"DIMTIH=1", "line text"}});
}

TEST(DimensionAngular, SurvivesDegenerateRecords) {
  for (const DimKind kind : {DimKind::kAngular, DimKind::kAngularPoints}) {
    Dim dim = betweenLines({2, 0}, {30, 0}, {0, -3}, {0, 6}, {12, 16}).set("DIMTAD=0");
    dim.figure.kind = kind;
    expectNumbers(dim, [](DimFigure& figure) {
      return std::array{&figure.second.x, &figure.line.y,    &figure.text.x, &figure.third.y,
                        &figure.arc.x,    &figure.box.width, &figure.scale,  &figure.first.y};
    });
  }
  EXPECT_TRUE(betweenLines({0, 0}, {10, 0}, {0, 5}, {10, 5}, {5, 2}).picture().empty()) << "parallel";
  EXPECT_TRUE(betweenLines({}, {}, {}, {}, {}).picture().empty());
  EXPECT_TRUE(aboutOrigin(0, 0, 90).picture().empty()) << "no radius";
  EXPECT_TRUE(aboutOrigin(20, 0, 0).picture().empty()) << "no angle";
}

}  // namespace
}  // namespace cad
