#include "tests/embedded/graphics/dimension_fixture.h"

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

TEST(RadiusDimension, IsDrawnAsTheHostDraws) {
  Dim radial(DimKind::kRadial);
  radial.figure.line = {569.6764940374901, 25.73998274658328};
  radial.figure.third = {577.7370882426746, 33.80057695176783};
  radial.figure.box = {8.87619372442, 3.00477489768};
  EXPECT_EQ(shown(radial.picture(), true), kRadial);
  Dim diametric(DimKind::kDiametric);
  diametric.figure.line = {603.8746989747631, 25.73998274658328};
  diametric.figure.third = {649.4723055577938, 25.73998274658328};
  diametric.figure.text = {626.6735022662784, 25.73998274658328};
  diametric.figure.userText = true;
  diametric.figure.box = {9.21214188267, 3.08663028649};
  EXPECT_EQ(shown(diametric.picture(), true), kTextInside);
}

}  // namespace
}  // namespace cad
