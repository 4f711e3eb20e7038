#include "acdbads.h"
#include "acedCmdNF.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/editor/host_fixture.h"

namespace {

using cad_test::HostTest;

// The token sequence of a program that loads a block without keeping a reference.
int insert(const std::wstring& name) {
  const int result = acedCommandS(RTSTR, L".-INSERT", RTSTR, name.c_str(), RTSTR, L"S", RTREAL, 1.0, RTSTR,
                                  L"R", RTREAL, 0.0, RTSTR, L"0,0", RTNONE);
  acedCommandS();
  return result;
}

class Insert : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    open();
  }
  std::size_t blockSize(std::wstring_view name) {
    const cad::RecordId block = drawing().find(cad::Table::kBlock, name);
    if (block == cad::kNoRecord) return 0;
    const auto& entities = drawing().entitiesOf(block);
    return static_cast<std::size_t>(std::count_if(entities.begin(), entities.end(), [&](cad::RecordId each) {
      return !drawing().record(each).erased();
    }));
  }
};

TEST_F(Insert, AFileBecomesABlockOfItsName) {
  const std::filesystem::path file = make("ARROW1.dxf", cad_test::drawingText());
  ads_name before, after;
  ASSERT_EQ(acdbEntLast(before), RTNORM);
  EXPECT_EQ(insert(text(file)), RTNORM);
  EXPECT_EQ(blockSize(L"ARROW1"), 5u);
  ASSERT_EQ(acdbEntLast(after), RTNORM);
  EXPECT_FALSE(ads_name_equal(before, after));
  EXPECT_EQ(acdbEntDel(after), RTNORM);
  ASSERT_EQ(acdbEntLast(after), RTNORM);
  EXPECT_TRUE(ads_name_equal(before, after));
  EXPECT_EQ(blockSize(L"ARROW1"), 5u);
}

TEST_F(Insert, EqualsRedefinesAnExistingBlock) {
  const std::filesystem::path file = make("other.dxf", cad_test::drawingText());
  EXPECT_EQ(blockSize(L"DOOR"), 1u);
  // The file defines a DOOR of its own; the redefinition is made from its model space without it.
  const std::filesystem::path plain =
      make("plain.dxf", cad::dxf::groups("0 SECTION|2 ENTITIES|0 LINE|8 NEWLAYER|10 0.0|20 0.0|11 1.0|21 1.0|"
                                         "0 LINE|8 0|10 0.0|20 0.0|11 2.0|21 1.0|0 ENDSEC|0 EOF"));
  EXPECT_EQ(insert(L"DOOR=" + text(plain)), RTNORM);
  EXPECT_EQ(blockSize(L"DOOR"), 2u);
  EXPECT_NE(drawing().find(cad::Table::kLayer, L"NEWLAYER"), cad::kNoRecord);
}

TEST_F(Insert, RefusesWhatIsNoDrawing) {
  const std::filesystem::path bad = make("bad.dxf", "this is no drawing");
  EXPECT_EQ(insert(text(bad)), RTERROR);
  EXPECT_TRUE(printedHas(L"bad.dxf"));
  EXPECT_EQ(insert(L"NO_SUCH_BLOCK"), RTERROR);
  EXPECT_EQ(acedCommandS(RTSTR, L"-INSERT", RTSTR, L"DOOR", RTSTR, L"S", RTREAL, 0.0, RTNONE), RTERROR);
  EXPECT_EQ(acedCommandS(RTSTR, L"-INSERT", RTSTR, L"DOOR", RTSTR, L"somewhere", RTNONE), RTERROR);
  EXPECT_FALSE(drawing().isModified());
}

}  // namespace
