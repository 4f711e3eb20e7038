#include "acdocman.h"
#include "acedCmdNF.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad_test::HostTest;
using test_support::inCommand;

class Save : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    open();
  }
  int saveAsDxf(const std::filesystem::path& target, bool overwrite) {
    const std::wstring path = text(target);
    resbuf* tokens = acutBuildList(RTSTR, L"SAVEAS", RTSTR, L"DXF", RTSTR, L"V", RTSTR, L"", RTSTR, L"",
                                   RTSTR, L"DXF", RTSTR, path.c_str(), RTNONE);
    resbuf* last = tokens;
    while (last->rbnext) last = last->rbnext;
    if (overwrite) last->rbnext = acutBuildList(RTSTR, L"Y", RTNONE);
    int result = RTERROR;
    inCommand([&] {
      result = acedCmdS(tokens);
      acedCommandS();
    });
    acutRelRb(tokens);
    return result;
  }
  void modify() {
    const cad::RecordId first = drawing().entitiesOf(drawing().modelSpace()).front();
    ASSERT_TRUE(drawing().setInteger(first, cad::Property::kColorIndex, 3).ok());
  }
};

TEST_F(Save, DxfBySequenceOfTokens) {
  const std::filesystem::path target = folder_ / "out.DXF";
  EXPECT_EQ(saveAsDxf(target, false), RTNORM);
  EXPECT_EQ(content(target), cad_test::drawingText());
  ASSERT_TRUE(host().lastSave());
  EXPECT_TRUE(host().lastSave()->status.ok());
  EXPECT_EQ(host().lastSave()->path, target);
  EXPECT_EQ(drawing().path(), target);
}

TEST_F(Save, OverwritesOnlyOnYes) {
  const std::filesystem::path target = make("out.DXF", "old");
  saveAsDxf(target, false);
  EXPECT_EQ(content(target), "old");
  ASSERT_TRUE(host().lastSave());
  EXPECT_FALSE(host().lastSave()->status.ok());
  EXPECT_EQ(saveAsDxf(target, true), RTNORM);
  EXPECT_EQ(content(target), cad_test::drawingText());
  EXPECT_TRUE(host().lastSave()->status.ok());
}

TEST_F(Save, AnAnswerThatIsNotAskedForDoesNoHarm) {
  EXPECT_EQ(saveAsDxf(folder_ / "fresh.DXF", true), RTNORM);
  EXPECT_TRUE(exists("fresh.DXF"));
}

TEST_F(Save, DwgAndDwtRefuseAndWriteNothing) {
  const std::wstring dwg = text(folder_ / "a.DWG"), dwt = text(folder_ / "a.DWT");
  inCommand([&] {
    EXPECT_EQ(acedCommandS(RTSTR, L"SAVEAS", RTSTR, L"", RTSTR, dwg.c_str(), RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(RTSTR, L"SAVEAS", RTSTR, L"T", RTSTR, dwt.c_str(), RTSTR, L"Y", RTNONE), RTERROR);
  });
  EXPECT_TRUE(printedHas(L"a.DWG: saving a DXF drawing as DWG is not supported yet"));
  EXPECT_FALSE(exists("a.DWG"));
  EXPECT_FALSE(exists("a.DWT"));
  ASSERT_TRUE(host().lastSave());
  EXPECT_EQ(host().lastSave()->status.failure().reason, L"saving a DXF drawing as DWT is not supported yet");
  EXPECT_EQ(drawing().path(), folder_ / "plan.dxf");
}

TEST_F(Save, AFolderThatIsNotThereIsReported) {
  EXPECT_EQ(saveAsDxf(folder_ / "missing" / "a.DXF", false), RTERROR);
  EXPECT_FALSE(host().lastSave()->status.ok());
}

TEST_F(Save, NeverOntoAnotherOpenDrawing) {
  open("second.dxf");
  EXPECT_EQ(saveAsDxf(folder_ / "plan.dxf", true), RTERROR);
  EXPECT_EQ(content(folder_ / "plan.dxf"), cad_test::drawingText());
}

TEST_F(Save, QuickSaveKeepsTheFile) {
  modify();
  EXPECT_TRUE(host().execute(L"QSAVE").ok());
  EXPECT_NE(content(folder_ / "plan.dxf"), cad_test::drawingText());
  EXPECT_FALSE(drawing().isModified());
  ASSERT_TRUE(host().closeDocument().ok());
  EXPECT_FALSE(host().execute(L"QSAVE").ok());  // the start document has no file
}

TEST_F(Save, CloseAsksForAWordAboutChangesAndWaitsForTheCommand) {
  modify();
  inCommand([&] {
    EXPECT_EQ(acedCommandS(RTSTR, L"CLOSE", RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(RTSTR, L"CLOSE", RTSTR, L"Y", RTNONE), RTNORM);
    EXPECT_EQ(acedCommandS(RTSTR, L"CLOSE", RTSTR, L"Y", RTNONE), RTNORM);
    EXPECT_EQ(drawing().path(), folder_ / "plan.dxf");  // the command goes on in its document
    EXPECT_EQ(acDocManager->closeDocument(acDocManager->curDocument()), Acad::eOk);
    EXPECT_EQ(host().documentCount(), 2u);
  });
  EXPECT_EQ(host().documentCount(), 1u);
  EXPECT_EQ(content(folder_ / "plan.dxf"), cad_test::drawingText());
  open("second.dxf");
  EXPECT_TRUE(host().execute(L"CLOSE").ok());
  EXPECT_EQ(host().documentCount(), 1u);
}

}  // namespace
