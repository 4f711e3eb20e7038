#include "dbmain.h"
#include "tests/embedded/dxf/dxf_text.h"
#include "tests/embedded/editor/host_fixture.h"

namespace {

using cad_test::HostTest;

class Variables : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    open();
  }
  resbuf get(const wchar_t* name) {
    resbuf value{};
    EXPECT_EQ(acedGetVar(name, &value), RTNORM) << testing::PrintToString(std::wstring(name));
    return value;
  }
  std::wstring getText(const wchar_t* name) {
    resbuf value = get(name);
    EXPECT_EQ(value.restype, RTSTR);
    if (value.restype != RTSTR) return L"";
    std::wstring out = value.resval.rstring;
    acutDelString(value.resval.rstring);
    return out;
  }
  int setText(const wchar_t* name, std::wstring value) {
    resbuf buffer{nullptr, RTSTR, {}};
    buffer.resval.rstring = value.data();
    return acedSetVar(name, &buffer);
  }
  int setReal(const wchar_t* name, double value) {
    resbuf buffer{nullptr, RTREAL, {}};
    buffer.resval.rreal = value;
    return acedSetVar(name, &buffer);
  }
  int setShort(const wchar_t* name, short value) {
    resbuf buffer{nullptr, RTSHORT, {}};
    buffer.resval.rint = value;
    return acedSetVar(name, &buffer);
  }
  bool hasBlock(std::wstring_view name) { return drawing().find(cad::Table::kBlock, name) != cad::kNoRecord; }
};

TEST_F(Variables, HaveTheirOwnTypes) {
  EXPECT_EQ(get(L"dimscale").restype, RTREAL);
  EXPECT_EQ(get(L"DIMTAD").restype, RTSHORT);
  EXPECT_EQ(get(L"LTSCALE").resval.rreal, 1.0);
  EXPECT_EQ(get(L"TILEMODE").resval.rint, 1);  // not in the file: the default
  EXPECT_EQ(getText(L"CLAYER"), L"0");
  EXPECT_EQ(getText(L"CECOLOR"), L"BYLAYER");
  EXPECT_EQ(getText(L"DWGNAME"), L"plan.dxf");
  EXPECT_EQ(getText(L"DWGPREFIX"), text(folder_ / ""));
  EXPECT_EQ(getText(L"SAVEFORMATS"), L"DWG,DXF,DWT");
  resbuf value{};
  EXPECT_EQ(acedGetVar(L"NOSUCHTHING", &value), RTERROR);
}

TEST_F(Variables, AreSetAndSavedWithTheDrawing) {
  EXPECT_EQ(get(L"DBMOD").resval.rint, 0);
  EXPECT_EQ(setReal(L"DIMSCALE", 50), RTNORM);
  EXPECT_EQ(setShort(L"DIMTAD", 1), RTNORM);
  EXPECT_EQ(setText(L"CLAYER", L"wall-a"), RTNORM);
  EXPECT_EQ(setText(L"CECOLOR", L"ByBlock"), RTNORM);
  EXPECT_EQ(get(L"DBMOD").resval.rint, 1);
  EXPECT_EQ(getText(L"CLAYER"), L"WALL-A");
  EXPECT_EQ(getText(L"CECOLOR"), L"BYBLOCK");
  ASSERT_TRUE(host().openDocument(make("again.dxf", savedBytes())).ok());
  EXPECT_EQ(get(L"DIMSCALE").resval.rreal, 50);
  EXPECT_EQ(getText(L"CLAYER"), L"WALL-A");
  EXPECT_EQ(getText(L"CECOLOR"), L"BYBLOCK");
}

TEST_F(Variables, WritingBackWhatIsThereIsNoChange) {
  EXPECT_EQ(setReal(L"USERR1", get(L"USERR1").resval.rreal), RTNORM);
  EXPECT_EQ(setText(L"DIMBLK", getText(L"DIMBLK")), RTNORM);
  EXPECT_EQ(setShort(L"TILEMODE", 1), RTNORM);
  EXPECT_EQ(get(L"DBMOD").resval.rint, 0);
  EXPECT_EQ(savedBytes(), cad_test::drawingFile());
}

TEST_F(Variables, RefuseWhatTheyCannotBe) {
  EXPECT_EQ(setReal(L"DBMOD", 0), RTERROR);
  EXPECT_EQ(setText(L"DWGNAME", L"other.dxf"), RTERROR);
  EXPECT_EQ(setShort(L"DIMSCALE", 2), RTERROR);  // a real
  EXPECT_EQ(setReal(L"DIMTAD", 1), RTERROR);     // an integer
  EXPECT_EQ(setText(L"LTSCALE", L"1"), RTERROR);
  EXPECT_EQ(setReal(L"LTSCALE", 0), RTERROR);
  EXPECT_EQ(setReal(L"LTSCALE", -1), RTERROR);
  EXPECT_EQ(setShort(L"TILEMODE", 2), RTERROR);
  EXPECT_EQ(setText(L"CLAYER", L"NOWHERE"), RTERROR);
  EXPECT_EQ(setText(L"CLAYER", L"FROZEN"), RTERROR);
  EXPECT_EQ(setText(L"CECOLOR", L"257"), RTERROR);
  EXPECT_EQ(setText(L"CECOLOR", L"red"), RTERROR);
  if (!cad::testsDwg()) {
    EXPECT_EQ(setShort(L"DIMATFIT", 1), RTERROR);  // this drawing's version has no such variable
  }
  EXPECT_EQ(setText(L"NOSUCHTHING", L""), RTERROR);
  EXPECT_EQ(get(L"DBMOD").resval.rint, 0);
}

TEST_F(Variables, OfDimensionsHaveTypesAndLimits) {
  ASSERT_TRUE(host().closeDocument().ok());
  std::string bytes = cad_test::drawingText();
  bytes.replace(bytes.find("AC10"), 6, "AC1024");
  ASSERT_TRUE(host().openDocument(make("new.dxf", bytes)).ok());
  const std::pair<const wchar_t*, std::pair<short, short>> integers[] = {// least, most
                                                                         {L"DIMADEC", {-1, 8}},
                                                                         {L"DIMSHO", {0, 1}},
                                                                         {L"DIMCLRT", {0, 256}},
                                                                         {L"DIMLWD", {-3, 211}}};
  for (const auto& [name, limits] : integers) {
    const std::string shown(name, name + std::char_traits<wchar_t>::length(name));
    EXPECT_EQ(setShort(name, limits.first), RTNORM) << shown;
    EXPECT_EQ(setShort(name, limits.second), RTNORM) << shown;
    EXPECT_EQ(setShort(name, static_cast<short>(limits.first - 1)), RTERROR) << shown;
    EXPECT_EQ(setShort(name, static_cast<short>(limits.second + 1)), RTERROR) << shown;
    EXPECT_EQ(get(name).resval.rint, limits.second) << shown;
    EXPECT_EQ(setReal(name, limits.first), RTERROR) << shown;
    resbuf wide{nullptr, RTLONG, {}};
    wide.resval.rlong = limits.first;
    EXPECT_EQ(acedSetVar(name, &wide), RTERROR) << shown;
  }
  EXPECT_EQ(setShort(L"DIMLWE", 7), RTERROR);  // no step
  EXPECT_EQ(setShort(L"CELWEIGHT", 7), RTERROR);
  for (const wchar_t* name : {L"DIMTFAC", L"DIMSCALE", L"DIMASZ", L"DIMTXT", L"DIMJOGANG"})
    EXPECT_EQ(setReal(name, -3), RTERROR);
  EXPECT_EQ(setReal(L"DIMLFAC", 0), RTERROR);
  for (const wchar_t* name : {L"DIMGAP", L"DIMLFAC", L"DIMALTF", L"DIMDLI"})
    EXPECT_EQ(setReal(name, -0.5), RTNORM);
  EXPECT_EQ(setShort(L"DIMALTF", 2), RTERROR);
  EXPECT_EQ(setText(L"DIMDSEP", L""), RTERROR);
  EXPECT_EQ(setText(L"DIMDSEP", L","), RTNORM);
}

TEST_F(Variables, AnArrowNameMakesItsBlock) {
  EXPECT_FALSE(hasBlock(L"_DOT"));
  EXPECT_EQ(setText(L"DIMBLK", L"_DOT"), RTNORM);
  EXPECT_TRUE(hasBlock(L"_DOT"));
  EXPECT_EQ(setText(L"DIMBLK", L"."), RTNORM);
  EXPECT_EQ(getText(L"DIMBLK"), L"");
  EXPECT_TRUE(hasBlock(L"_DOT"));
  EXPECT_EQ(setText(L"DIMBLK1", L"door"), RTNORM);  // a block of the drawing's own
  EXPECT_EQ(getText(L"DIMBLK1"), L"DOOR");
  for (const wchar_t* name : {L"NO_SUCH_ARROW", L"_ARCHTIC", L"OPEN"})
    EXPECT_EQ(setText(L"DIMBLK", name), RTERROR);
}

// So that a program can set a variable back to what it read.
TEST_F(Variables, AnArrowIsReadByItsBlocksName) {
  for (const auto& [stored, expected] : {std::pair("DOT", L"_DOT"), {"GONE", L""}, {"door", L"DOOR"}}) {
    const std::string bytes = cad::dxf::replaced(cad_test::drawingText(), "$DIMBLK\r\n  1\r\n",
                                                 "$DIMBLK\r\n  1\r\n" + std::string(stored));
    ASSERT_TRUE(host().openDocument(make("arrows.dxf", bytes)).ok());
    EXPECT_EQ(setText(L"DIMBLK1", L"_DOT"), RTNORM);
    EXPECT_EQ(getText(L"DIMBLK"), expected) << stored;
    EXPECT_EQ(setText(L"DIMBLK", L"_OPEN"), RTNORM);
    EXPECT_EQ(setText(L"DIMBLK", expected), RTNORM) << stored;
    EXPECT_EQ(getText(L"DIMBLK"), expected) << stored;
    ASSERT_TRUE(host().closeDocument().ok());
  }
}

TEST_F(Variables, AnIntegerStoredAsARealTooLargeForItIsTheDefault) {
  for (const auto& [stored, expected] :
       {std::pair("1e300", 0), std::pair("-1e300", 0), std::pair("2.0", 2)}) {
    const std::string bytes = cad::dxf::replaced(cad_test::drawingText(), "$DIMTAD\r\n 70\r\n0\r\n",
                                                 "$DIMTAD\r\n 40\r\n" + std::string(stored) + "\r\n");
    ASSERT_TRUE(host().openDocument(make("odd.dxf", bytes)).ok());
    EXPECT_EQ(get(L"DIMTAD").resval.rint, expected) << stored;
    ASSERT_TRUE(host().closeDocument().ok());
  }
}

TEST_F(Variables, SessionVariablesStayWithTheHost) {
  EXPECT_EQ(setText(L"USERS1", L"note"), RTNORM);
  EXPECT_EQ(setShort(L"CMDECHO", 0), RTNORM);
  ASSERT_TRUE(host().closeDocument().ok());
  EXPECT_EQ(getText(L"USERS1"), L"note");
  EXPECT_EQ(get(L"CMDECHO").resval.rint, 0);
  EXPECT_EQ(getText(L"DWGNAME"), L"Drawing1.dwg");
}

}  // namespace
