#include "acdbads.h"
#include "acedCmdNF.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad_test::HostTest;
using test_support::inCommand;

// The token sequence of a program that loads a block without keeping a reference.
int insert(const std::wstring& name) {
  int result = RTERROR;
  inCommand([&] {
    result = acedCommandS(RTSTR, L".-INSERT", RTSTR, name.c_str(), RTSTR, L"S", RTREAL, 1.0, RTSTR, L"R",
                          RTREAL, 0.0, RTSTR, L"0,0", RTNONE);
    acedCommandS();
  });
  return result;
}

// Two lines, and the definitions of two attributes: one asked for, one constant.
std::string blockFile(bool hasAttributes) {
  const char* lines =
      "0 SECTION|2 ENTITIES|0 LINE|8 NEWLAYER|10 0.0|20 0.0|11 1.0|21 1.0|"
      "0 LINE|8 0|10 0.0|20 0.0|11 2.0|21 1.0|";
  const std::string definition = "0 ATTDEF|8 0|10 3.0|20 0.0|40 2.5|1 NONE|3 No.|2 ";
  const std::string definitions = definition + "NUMBER|70 0|" + definition + "MAKER|70 2|";
  return cad::dxf::groups(lines + (hasAttributes ? definitions : "") + "0 ENDSEC|0 EOF");
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
  inCommand([&] { EXPECT_EQ(acdbEntDel(after), RTNORM); });
  ASSERT_EQ(acdbEntLast(after), RTNORM);
  EXPECT_TRUE(ads_name_equal(before, after));
  EXPECT_EQ(blockSize(L"ARROW1"), 5u);
}

TEST_F(Insert, EqualsRedefinesAnExistingBlock) {
  EXPECT_EQ(blockSize(L"DOOR"), 1u);
  const std::wstring name = L"DOOR=" + text(make("plain.dxf", blockFile(false)));
  const std::wstring typed = L"-INSERT \"" + name + L"\" ";
  EXPECT_TRUE(host().execute(typed + L"N S 1 R 0 0,0").ok());
  EXPECT_TRUE(host().execute(typed + L" S 1 R 0 0,0").ok()) << "Enter is No";
  for (const wchar_t* neither : {L"S 1 R 0 0,0", L"0,0", L"Q"})
    EXPECT_FALSE(host().execute(typed + neither).ok()) << testing::PrintToString(std::wstring(neither));
  inCommand([&] {
    EXPECT_EQ(acedCommandS(RTSTR, L".-INSERT", RTSTR, name.c_str(), RTSTR, L"0,0", RTNONE), RTERROR);
  });
  EXPECT_EQ(blockSize(L"DOOR"), 1u);
  EXPECT_EQ(insert(name), RTNORM);  // the question may stay without its answer
  EXPECT_EQ(blockSize(L"DOOR"), 2u);
  EXPECT_NE(drawing().find(cad::Table::kLayer, L"NEWLAYER"), cad::kNoRecord);
  EXPECT_TRUE(host().execute(typed + L"Y S 1 R 0 0,0").ok());
  ASSERT_TRUE(host().execute(L"REGEN").ok());
  resbuf expert{nullptr, RTSHORT, {}};
  expert.resval.rint = 2;
  ASSERT_EQ(acedSetVar(L"EXPERT", &expert), RTNORM);  // asks no more, so there is nothing to answer
  EXPECT_FALSE(host().execute(typed + L"Y S 1 R 0 0,0").ok());
}

TEST_F(Insert, ATypedFileIsReadOnce) {
  const std::filesystem::path file = make("TYPED.dxf", blockFile(false));
  EXPECT_TRUE(host().execute(L"-INSERT \"" + text(file) + L"\"").ok());
  ASSERT_TRUE(base::writeFileAtomically(file, "no drawing any more").ok());
  for (const wchar_t* each : {L"S", L"1", L"R", L"0", L"0,0"}) EXPECT_TRUE(host().execute(each).ok());
  EXPECT_EQ(blockSize(L"TYPED"), 2u);
  EXPECT_FALSE(host().execute(L"-INSERT \"NEW=" + text(file) + L"\"").ok()) << "another command reads anew";
}

TEST_F(Insert, AttributesAreAskedForAfterThePoint) {
  const std::wstring file = text(make("TAG.dxf", blockFile(true)));
  const std::size_t before = drawing().entitiesOf(drawing().modelSpace()).size();
  EXPECT_EQ(insert(file), RTERROR);  // a program's sequence ends at the first question
  EXPECT_EQ(blockSize(L"TAG"), 4u);
  EXPECT_EQ(drawing().entitiesOf(drawing().modelSpace()).size(), before);

  EXPECT_TRUE(host().execute(L"-INSERT TAG S 2 R 90 10,10").ok());
  EXPECT_EQ(drawing().entitiesOf(drawing().modelSpace()).size(), before);
  EXPECT_TRUE(host().execute(L"A 12").ok());
  const auto parts = drawing().subRecordsOf(drawing().lastEntity());
  ASSERT_EQ(parts.size(), 2u);
  EXPECT_EQ(drawing().typeName(parts[1]), "SEQEND");
  EXPECT_EQ(drawing().text(parts[0], cad::Property::kTextString), L"A 12");
  EXPECT_EQ(drawing().real(parts[0], cad::Property::kTextHeight), 5);
  EXPECT_EQ(drawing().real(parts[0], cad::Property::kRotation), 90);
  const cad::Geometry shape = drawing().geometry(parts[0]);
  const auto& moved = std::get<cad::TextGeometry>(shape.shape);
  EXPECT_NEAR(moved.at.x, 10, 1e-9);
  EXPECT_NEAR(moved.at.y, 16, 1e-9);

  resbuf off{nullptr, RTSHORT, {}};
  ASSERT_EQ(acedSetVar(L"ATTREQ", &off), RTNORM);
  EXPECT_EQ(insert(L"TAG"), RTNORM);
  const auto silent = drawing().subRecordsOf(drawing().lastEntity());
  ASSERT_EQ(silent.size(), 2u);
  EXPECT_EQ(drawing().text(silent[0], cad::Property::kTextString), L"NONE");
}

TEST_F(Insert, RefusesWhatIsNoDrawing) {
  const std::filesystem::path bad = make("bad.dxf", "this is no drawing");
  EXPECT_EQ(insert(text(bad)), RTERROR);
  EXPECT_TRUE(printedHas(L"bad.dxf"));
  EXPECT_EQ(insert(L"NO_SUCH_BLOCK"), RTERROR);
  EXPECT_FALSE(host().execute(L"-INSERT DOOR S 0").ok());
  EXPECT_FALSE(host().execute(L"-INSERT DOOR somewhere").ok());
  EXPECT_EQ(insert(L"A|B=" + text(folder_ / "plan.dxf")), RTERROR);
  EXPECT_FALSE(drawing().isModified());
}

#if !defined(_WIN32)  // where a file can be cut off that somebody reads

TEST_F(Insert, ATypedFileThatIsCutOffMeanwhileIsRefused) {
  const std::filesystem::path file = make("CUT.dxf", blockFile(false));
  const std::size_t before = drawing().entitiesOf(drawing().modelSpace()).size();
  EXPECT_TRUE(host().execute(L"-INSERT \"" + text(file) + L"\"").ok());
  std::filesystem::resize_file(file, 100);
  EXPECT_FALSE(host().execute(L"S 1 R 0 0,0").ok());
  EXPECT_EQ(blockSize(L"CUT"), 0u);
  EXPECT_EQ(drawing().entitiesOf(drawing().modelSpace()).size(), before);
}

#endif

}  // namespace
