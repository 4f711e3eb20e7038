#include "acdb.h"
#include "acdocman.h"
#include "afxwin.h"
#include "rxmfcapi.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad_test::HostTest;
using test_support::inCommand;

TEST_F(HostTest, TablesAreSearchedByName) {
  open();
  resbuf* style = acdbTblSearch(L"style", L"kanji", 0);
  ASSERT_NE(style, nullptr);
  EXPECT_STREQ(style->resval.rstring, L"STYLE");
  EXPECT_STREQ(style->rbnext->resval.rstring, L"KANJI");
  std::wstring bigFont;
  for (const resbuf* at = style; at; at = at->rbnext)
    if (at->restype == 4) bigFont = at->resval.rstring;
  EXPECT_EQ(bigFont, L"bigfont.shx");
  acutRelRb(style);
  resbuf* block = acdbTblSearch(L"BLOCK", L"door", 0);
  EXPECT_NE(block, nullptr);
  acutRelRb(block);
  EXPECT_EQ(acdbTblSearch(L"BLOCK", L"window", 0), nullptr);
  EXPECT_EQ(acdbTblSearch(L"ROOMS", L"door", 0), nullptr);
}

TEST_F(HostTest, EntitiesOnLockedLayersAndStrangeNamesAreNotErased) {
  open();
  resbuf* filter = acutBuildList(8, L"LOCKED", RTNONE);
  ads_name set, entity;
  ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), RTNORM);
  acutRelRb(filter);
  ASSERT_EQ(acedSSName(set, 0, entity), RTNORM);
  acedSSFree(set);
  const ads_name strange = {12345678, 0};
  inCommand([&] {
    EXPECT_EQ(acdbEntDel(entity), RTERROR);
    EXPECT_EQ(acdbEntDel(strange), RTERROR);
  });
  EXPECT_FALSE(drawing().isModified());
}

TEST_F(HostTest, LinetypesAreLoadedOnce) {
  open();
  make("types.lin",
       "*DASHES,Dashes __ __\r\nA,.5,-.25\r\n*DOTS,Dots . .\r\nA,0,-.25\r\n"
       "*GAS,Gas\r\nA,1,-1,[\"GAS\",STANDARD],-1\r\n*BAD,Bad\r\nA,1,no\r\n");
  AcApDocument* document = acDocManager->curDocument();
  AcDbDatabase* database = document->database();
  EXPECT_EQ(acdbLoadLineTypeFile(L"dashes", L"types.lin", database), Acad::eLockViolation);
  ASSERT_EQ(acDocManager->lockDocument(document), Acad::eOk);
  EXPECT_EQ(acdbLoadLineTypeFile(L"dashes", L"types.lin", database), Acad::eOk);
  EXPECT_NE(drawing().find(cad::Table::kLinetype, L"DASHES"), cad::kNoRecord);
  EXPECT_EQ(acdbLoadLineTypeFile(L"DASHES", L"types.lin", database), Acad::eDuplicateRecordName);
  EXPECT_EQ(acdbLoadLineTypeFile(L"WAVES", L"types.lin", database), Acad::eUndefinedLineType);
  EXPECT_EQ(acdbLoadLineTypeFile(L"DOTS", L"no_such.lin", database), Acad::eFileNotFound);
  EXPECT_EQ(acdbLoadLineTypeFile(L"DOTS", L"types.lin", nullptr), Acad::eNoDatabase);
  cad::Host::instance().beginRun();
  const bool holdsTexts = drawing().facts().linetypesHoldSymbols();
  EXPECT_EQ(acdbLoadLineTypeFile(L"GAS", L"types.lin", database),
            holdsTexts ? Acad::eOk : Acad::eNotApplicable);
  EXPECT_EQ(acdbLoadLineTypeFile(L"BAD", L"types.lin", database), Acad::eInvalidInput);
  const std::vector<base::Failure> remarks = cad::Host::instance().takeRemarks();
  ASSERT_EQ(remarks.size(), 1U);
  EXPECT_EQ(remarks[0].place, L"types.lin, line 8");
}

TEST_F(HostTest, NamesOfTableRecords) {
  EXPECT_EQ(acdbSNValid(L"壁-A 1", 0), RTNORM);
  EXPECT_EQ(acdbSNValid(L"", 0), RTERROR);
  EXPECT_EQ(acdbSNValid(L"A*B", 0), RTERROR);
  EXPECT_EQ(acdbSNValid(L"A|B", 0), RTERROR);
  EXPECT_EQ(acdbSNValid(L"A|B", 1), RTNORM);
  EXPECT_EQ(acdbSNValid(L"|B", 1), RTERROR);
}

TEST_F(HostTest, TheMeterIsObserved) {
  std::vector<int> positions;
  std::wstring label;
  host().setMeterObserver([&](const cad::Meter& meter) {
    positions.push_back(meter.position);
    if (!meter.label.empty()) label = meter.label;
  });
  EXPECT_EQ(acedSetStatusBarProgressMeter(L"文字を変換中", 0, 3), 0);
  EXPECT_EQ(acedSetStatusBarProgressMeterPos(2), 0);
  EXPECT_EQ(acedSetStatusBarProgressMeterPos(9), 0);
  acedRestoreStatusBar();
  EXPECT_EQ(acedSetStatusBarProgressMeterPos(1), -1);
  host().setMeterObserver(nullptr);
  EXPECT_EQ(positions, (std::vector<int>{0, 2, 3, 0}));
  EXPECT_EQ(label, L"文字を変換中");
}

TEST_F(HostTest, InputComesOnlyFromASource) {
  int type = 0;
  resbuf result{};
  EXPECT_EQ(acedGrRead(15, &type, &result), RTERROR);
  EXPECT_EQ(acedUsrBrk(), 0);
  int keys = 1;
  ads_name entity;
  ads_point point;
  EXPECT_EQ(acedEntSel(L"\nPick: ", entity, point), RTERROR);
  EXPECT_TRUE(printedHas(L"Pick: "));
  host().setInputSource([&]() -> std::optional<cad::InputEvent> {
    if (keys-- > 0) return cad::InputEvent{2, 13, 0, 0};
    return std::nullopt;
  });
  EXPECT_EQ(acedGrRead(15, &type, &result), RTNORM);
  EXPECT_EQ(type, 2);
  EXPECT_EQ(result.resval.rint, 13);
  EXPECT_EQ(acedGrRead(15, &type, &result), RTERROR);
  host().setInputSource(nullptr);
}

}  // namespace
