#include "accmd.h"
#include "acdb.h"
#include "acdbads.h"
#include "acdocman.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "embedded/objects/database_access.h"
#include "rxregsvc.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad_test::HostTest;
using test_support::inCommand;

std::vector<std::wstring> ran;

void note() { ran.push_back(acDocManager->curDocument()->docTitle()); }

void noteAndSend() {
  note();
  acDocManager->sendStringToExecute(acDocManager->curDocument(), L"NOTE\n", true, false, true);
  ran.push_back(L"after sending");
}

class DocumentsTest : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    ran.clear();
    acedRegCmds->addCommand(L"TEST_GROUP", L"NOTE", L"NT", ACRX_CMD_MODAL, note);
    acedRegCmds->addCommand(L"TEST_GROUP", L"SENDS", L"SN", ACRX_CMD_MODAL, noteAndSend);
  }
  void TearDown() override {
    acedRegCmds->removeGroup(L"TEST_GROUP");
    HostTest::TearDown();
  }
  std::vector<std::wstring> titles() {
    std::vector<std::wstring> out;
    const std::unique_ptr<AcApDocumentIterator> all(acDocManager->newAcApDocumentIterator());
    for (; !all->done(); all->step()) out.push_back(all->document()->docTitle());
    return out;
  }
};

TEST_F(DocumentsTest, AStartDocumentIsAlwaysThere) {
  EXPECT_EQ(titles(), std::vector<std::wstring>{L"Drawing1.dwg"});
  ASSERT_TRUE(host().closeDocument().ok());
  EXPECT_EQ(titles(), std::vector<std::wstring>{L"Drawing2.dwg"});
}

Acad::ErrorStatus writing;

void writeLayers() {
  AcDbLayerTablePointer table(acDocManager->curDocument()->database(), AcDb::kForWrite);
  writing = table.openStatus();
  ads_name last;
  ASSERT_EQ(acdbEntLast(last), RTNORM);
  EXPECT_EQ(acdbEntDel(last), writing == Acad::eOk ? RTNORM : RTERROR);
}

TEST_F(DocumentsTest, ADocumentIsWrittenUnderACommandOrALock) {
  open();
  AcApDocument* document = acDocManager->curDocument();
  acedRegCmds->addCommand(L"TEST_GROUP", L"WRITE", L"WR", ACRX_CMD_MODAL, writeLayers);
  const auto outside = [] { return writeLayers(), writing; };
  EXPECT_EQ(outside(), Acad::eLockViolation);
  EXPECT_EQ(AcDbLayerTablePointer(document->database()).openStatus(), Acad::eOk) << "reading needs no lock";
  EXPECT_TRUE(host().execute(L"WRITE").ok());
  EXPECT_EQ(writing, Acad::eOk);
  inCommand(writeLayers, ACRX_CMD_SESSION);
  EXPECT_EQ(writing, Acad::eLockViolation) << "a command of the application locks for itself";
  EXPECT_EQ(acDocManager->lockDocument(document, AcAp::kRead), Acad::eOk);
  EXPECT_EQ(outside(), Acad::eLockViolation);
  EXPECT_EQ(acDocManager->lockDocument(document), Acad::eOk);
  EXPECT_EQ(outside(), Acad::eOk);
  EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eOk);
  EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eOk);
  EXPECT_EQ(acDocManager->unlockDocument(document), Acad::eInvalidInput);
  EXPECT_EQ(outside(), Acad::eLockViolation);
}

TEST_F(DocumentsTest, TheWorkingDatabaseFollowsTheCurrentDocument) {
  AcApDocument* start = acDocManager->curDocument();
  open();
  AcApDocument* plan = acDocManager->mdiActiveDocument();
  EXPECT_NE(plan, start);
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), plan->database());
  EXPECT_EQ(acDocManager->document(start->database()), start);
  EXPECT_EQ(acDocManager->activateDocument(start), Acad::eOk);
  EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), start->database());
  EXPECT_EQ(acDocManager->closeDocument(plan), Acad::eOk);
  EXPECT_EQ(acDocManager->closeDocument(plan), Acad::eInvalidInput);
  EXPECT_EQ(acDocManager->curDocument(), start);
}

TEST_F(DocumentsTest, ADrawingIsOpenOnlyOnce) {
  const std::filesystem::path path = open();
  open("second.dxf");
  ASSERT_TRUE(host().openDocument(path).ok());
  EXPECT_EQ(host().documentCount(), 3u);
  EXPECT_EQ(std::wstring(acDocManager->curDocument()->fileName()), text(path));
}

TEST_F(DocumentsTest, OpenAsksBeforeADrawingIsOpenedOnceMore) {
  const std::filesystem::path path = open();
  const cad::RecordId first = drawing().entitiesOf(drawing().modelSpace()).front();
  ASSERT_TRUE(drawing().setInteger(first, cad::Property::kColorIndex, 3).ok());
  EXPECT_FALSE(host().execute(L"OPEN " + text(path) + L"\nN").ok());
  EXPECT_TRUE(host().execute(L"OPEN " + text(path)).ok());
  EXPECT_TRUE(host().hasOpenPrompt());
  EXPECT_FALSE(host().execute(L"REGEN").ok());
  EXPECT_EQ(host().documentCount(), 2u);
  ASSERT_TRUE(host().execute(L"OPEN " + text(path) + L"\nY").ok());
  EXPECT_EQ(host().documentCount(), 3u);
  EXPECT_TRUE(host().currentDocument().isReadOnly);
  EXPECT_EQ(savedBytes(), cad_test::drawingFile()) << "what stands in the file";
  EXPECT_FALSE(host().execute(L"QSAVE").ok());
  EXPECT_FALSE(host().execute(L"SAVEAS " + text(path) + L"\nY").ok());
  EXPECT_TRUE(host().execute(L"SAVEAS " + text(folder_ / (cad::testsDwg() ? "copy.dwg" : "copy.dxf"))).ok());
  EXPECT_FALSE(host().currentDocument().isReadOnly);
  EXPECT_TRUE(host().execute(L"QSAVE").ok());
  EXPECT_EQ(content(path), cad_test::drawingFile());
}

TEST_F(DocumentsTest, ABadFileIsNamedAndChangesNothing) {
  const base::Status missing = host().openDocument(folder_ / "missing.dxf");
  ASSERT_FALSE(missing.ok());
  EXPECT_NE(missing.failure().text().find(L"missing.dxf"), std::wstring::npos);
  EXPECT_FALSE(host().execute(L"OPEN " + text(make("bad.dxf", "no drawing"))).ok());
  EXPECT_EQ(host().documentCount(), 1u);
}

TEST_F(DocumentsTest, SentStringsRunInOrderWhenTheCommandHasEnded) {
  AcApDocument* start = acDocManager->curDocument();
  open();
  acDocManager->sendStringToExecute(start, L"\x03NOTE\n", true, false, true);
  ASSERT_TRUE(host().execute(L"SENDS").ok());
  const std::vector<std::wstring> expected = {L"plan.dxf", L"after sending", L"Drawing1.dwg", L"plan.dxf"};
  EXPECT_EQ(ran, expected);
}

TEST_F(DocumentsTest, StringsOfAClosedDocumentAreDropped) {
  open();
  AcApDocument* plan = acDocManager->curDocument();
  acDocManager->sendStringToExecute(plan, L"NOTE\n");
  acDocManager->closeDocument(plan);
  EXPECT_TRUE(host().execute(L"REGEN").ok());
  EXPECT_TRUE(ran.empty());
  EXPECT_EQ(acDocManager->sendStringToExecute(plan, L"NOTE\n"), Acad::eInvalidInput);
}

TEST_F(DocumentsTest, FilesAreFoundAlongTheSearchPathIgnoringCase) {
  open();
  std::filesystem::create_directories(folder_ / "support");
  make("beside.txt", "");
  make("support/FONTS.LIN", "");
  host().setSupportPath({folder_ / "support"});
  AcString found;
  EXPECT_EQ(acedFindFile(L"Beside.TXT", found), RTNORM);
  EXPECT_TRUE(std::filesystem::equivalent(found.kACharPtr(), folder_ / "beside.txt"));
  EXPECT_EQ(acedFindFile(L"fonts.lin", found), RTNORM);
  EXPECT_EQ(acedFindFile(text(folder_ / "fonts.lin").c_str(), found),
            RTERROR);  // only in the folder it names
  EXPECT_EQ(acedFindFile(text(folder_ / "Support" / "fonts.lin").c_str(), found), RTNORM);
  EXPECT_TRUE(std::filesystem::equivalent(found.kACharPtr(), folder_ / "support" / "FONTS.LIN"));
  EXPECT_EQ(acedFindFile(text(folder_ / "NoFolder" / "fonts.lin").c_str(), found), RTERROR);
  EXPECT_EQ(acedFindFile(L"nothing.lin", found), RTERROR);
  wchar_t small[4];
  EXPECT_EQ(acedFindFile(L"fonts.lin", small, 4), RTERROR);
}

TEST_F(DocumentsTest, TheSupportPathIsAValueOfTheHostsEnvironment) {
  const auto value = [](const wchar_t* name) {
    const ACHAR* found = acdbHostApplicationServices()->getEnv(name);
    return found == nullptr ? std::wstring(L"(none)") : std::wstring(found);
  };
  std::filesystem::create_directory(folder_ / "office");
  make("office/OWN.LIN", "");
  std::filesystem::path listed = ";";
  ((listed += folder_ / "office") += ";nowhere;");
  test_support::setEnvironment("KIV_SUPPORT_PATH", listed);
  host().setSupportPath(cad::usualSupportPath(folder_ / "rules"));
  EXPECT_EQ(value(L"ACAD"), text(folder_ / "rules") + L";" + text(folder_ / "office") + L";" +
                                text(std::filesystem::current_path() / "nowhere") + L";" +
                                text(cad::programFolder() / "support"));
  AcString found;
  EXPECT_EQ(acedFindFile(L"own.lin", found), RTNORM);
  EXPECT_EQ(value(L"KIV_SUPPORT_PATH"), L";" + text(folder_ / "office") + L";nowhere;");
  test_support::setEnvironment("KIV_SUPPORT_PATH", "");
  EXPECT_EQ(cad::usualSupportPath(folder_).size(), 2u);
  EXPECT_TRUE(std::filesystem::is_directory(value(L"TempDirectory")));
  for (const wchar_t* unknown : {L"Acad", L"NO_SUCH_VALUE", L""}) EXPECT_EQ(value(unknown), L"(none)");
  EXPECT_EQ(acdbHostApplicationServices()->getEnv(nullptr), nullptr);
}

}  // namespace
