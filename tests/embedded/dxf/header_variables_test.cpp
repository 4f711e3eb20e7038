#include "tests/embedded/dxf/building_fixture.h"

namespace cad::dxf {
namespace {

TEST(HeaderVariables, AreReadAndReplacedInPlace) {
  auto drawing = modern("0 LINE|5 20|8 0");
  const std::string original = saved(*drawing);
  EXPECT_EQ(drawing->headerVariable("CLAYER"), Variable(std::wstring(L"WALL")));
  EXPECT_FALSE(drawing->headerVariable("LTSCALE").has_value());
  ASSERT_TRUE(drawing->setHeaderVariable("CLAYER", std::wstring(L"\x58C1")).ok());
  EXPECT_EQ(saved(*drawing), replaced(original, "WALL", "\x95\xC7"));
  expectUndone(*drawing, original);
}

TEST(HeaderVariables, NewOnesStandInTheHeaderWithTheirOwnCode) {
  auto drawing = modern("0 LINE|5 20|8 0");
  const std::string original = saved(*drawing);
  ASSERT_TRUE(drawing->setHeaderVariable("DIMTXT", std::int64_t{3}).ok());
  ASSERT_TRUE(drawing->setHeaderVariable("USERI1", 7.0).ok());
  ASSERT_TRUE(drawing->setHeaderVariable("DIMASZ", 2.5).ok());
  const std::string expected = groups("5 400|9 $DIMTXT|40 3.0|9 $DIMASZ|40 2.5|9 $USERI1|70      7|0 ENDSEC");
  const std::string text = saved(*drawing);
  EXPECT_TRUE(text.find(expected) != std::string::npos ||
              text.find(replaced(expected, "     7", "7")) != std::string::npos)
      << text;
  EXPECT_EQ(drawing->headerVariable("DIMTXT"), Variable(3.0));
  expectUndone(*drawing, original);
}

TEST(HeaderVariables, AreReadBackWhateverStoodThere) {
  for (const char* header :
       {"2 HEADER|9 $DIMASZ", "2 HEADER|9 $DIMASZ|9 $LTSCALE|40 1.0", "2 HEADER|9 $DIMASZ|70 1",
        "2 HEADER|9 $DIMASZ|310 00", "2 HEADER|9 $DIMASZ|10 1.0|20 2.0", "9 $DIMASZ|2 HEADER",
        "9 $LTSCALE|2 HEADER|40 2.5"}) {
    auto drawing = read(groups("0 SECTION|" + std::string(header) + "|0 ENDSEC|0 SECTION|2 ENTITIES|0 EOF"));
    ASSERT_TRUE(drawing->setHeaderVariable("DIMASZ", 7.5).ok()) << header;
    EXPECT_EQ(read(saved(*drawing))->headerVariable("DIMASZ"), Variable(7.5)) << saved(*drawing);
  }
}

TEST(HeaderVariables, RefusesWhatTheVersionOrTheTypeDoesNotAllow) {
  auto drawing = old("0 LINE|8 0");
  const std::string original = saved(*drawing);
  EXPECT_FALSE(drawing->setHeaderVariable("CELWEIGHT", std::int64_t{25}).ok());
  EXPECT_FALSE(drawing->setHeaderVariable("DIMTXT", std::wstring(L"tall")).ok());
  EXPECT_FALSE(drawing->setHeaderVariable("DIMTAD", 0.5).ok());
  EXPECT_FALSE(drawing->setHeaderVariable("CLAYER", 1.0).ok());
  EXPECT_FALSE(drawing->setHeaderVariable("NOSUCH", 1.0).ok());
  EXPECT_EQ(saved(*drawing), original);
}

TEST(HeaderVariables, AFileWithoutHeaderGetsOneWhenItIsNeeded) {
  auto drawing = read(groups("0 SECTION|2 ENTITIES|0 LINE|8 0|0 ENDSEC|0 EOF"));
  ASSERT_TRUE(drawing);
  const std::string original = saved(*drawing);
  EXPECT_FALSE(drawing->headerVariable("LTSCALE").has_value());
  ASSERT_TRUE(drawing->setHeaderVariable("LTSCALE", 2.0).ok());
  EXPECT_EQ(drawing->headerVariable("LTSCALE"), Variable(2.0));
  EXPECT_EQ(saved(*drawing), groups("0 SECTION|2 HEADER|9 $LTSCALE|40 2.0|0 ENDSEC") + original);
  expectUndone(*drawing, original);
  EXPECT_FALSE(drawing->headerVariable("LTSCALE").has_value());
}

}  // namespace
}  // namespace cad::dxf
