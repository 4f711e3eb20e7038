#include "accmd.h"
#include "acdocman.h"
#include "acedCmdNF.h"
#include "base/codepage.h"
#include "rxregsvc.h"
#include "tests/embedded/editor/host_fixture.h"

namespace {

using cad_test::HostTest;

std::vector<std::wstring> visited;

void visit() {
  visited.push_back(acDocManager->curDocument()->docTitle());
  resbuf* filter = acutBuildList(RTDXF0, L"TEXT", RTNONE);
  ads_name set;
  EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), RTNORM);
  acutRelRb(filter);
  acedSSFree(set);
}

std::string utf16(const std::wstring& text) {
  std::string out = "\xFF\xFE";
  for (const wchar_t c : text) {
    out += static_cast<char>(c & 0xFF);
    out += static_cast<char>(c >> 8);
  }
  return out;
}

class Script : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    visited.clear();
    acedRegCmds->addCommand(L"TEST_GROUP", L"VISIT", L"VS", ACRX_CMD_MODAL, visit);
    acedRegCmds->addCommand(L"TEST_GROUP", L"STARTS", L"ST", ACRX_CMD_MODAL, [] {
      const std::wstring path = cad::Host::instance().currentDrawing().path().empty() ? *scriptPath : L"";
      acedCommandS(RTSTR, L"SCRIPT", RTSTR, path.c_str(), RTNONE);
      acedCommandS();
      visited.push_back(L"started");
    });
    one_ = text(make("first plan.dxf", cad_test::drawingText()));
    two_ = text(make(base::pathFromText(L"図面2.dxf"), cad_test::drawingText()));
  }
  void TearDown() override {
    acedRegCmds->removeGroup(L"TEST_GROUP");
    HostTest::TearDown();
  }
  std::wstring batch() {
    return L"_.OPEN\r\n\"" + one_ + L"\"\r\nVISIT\r\n_.OPEN\r\n\"" + two_ + L"\"\r\nVISIT\r\n";
  }

  static inline const std::wstring* scriptPath = nullptr;
  std::wstring one_, two_;
};

TEST_F(Script, OpensOneDrawingAfterTheOtherWhenTheCallerHasEnded) {
  const std::wstring path = text(make("batch.scr", utf16(batch())));
  scriptPath = &path;
  ASSERT_TRUE(host().execute(L"STARTS").ok());
  const std::vector<std::wstring> expected = {L"started", L"first plan.dxf", L"図面2.dxf"};
  EXPECT_EQ(visited, expected);
}

TEST_F(Script, ReadsEveryEncoding) {
  for (const std::string& bytes : {utf16(batch()), "\xEF\xBB\xBF" + base::toUtf8(batch()),
                                   base::toUtf8(batch()), base::encode(batch(), base::kJapanese).bytes}) {
    visited.clear();
    ASSERT_TRUE(host().execute(L"SCRIPT " + text(make("batch.scr", bytes))).ok());
    EXPECT_EQ(visited.size(), 2u);
    while (host().documentCount() > 1) ASSERT_TRUE(host().closeDocument().ok());
    ASSERT_TRUE(host().closeDocument().ok());
  }
}

TEST_F(Script, StopsAtARefusalAndSaysSo) {
  const std::wstring path =
      text(make("batch.scr", base::toUtf8(L"OPEN\n\"" + text(folder_ / "no.dxf") + L"\"\nVISIT\n")));
  EXPECT_FALSE(host().execute(L"SCRIPT " + path).ok());
  EXPECT_TRUE(visited.empty());
  EXPECT_TRUE(printedHas(L"The script has been stopped."));
  EXPECT_FALSE(host().execute(L"SCRIPT " + text(folder_ / "no.scr")).ok());
}

TEST_F(Script, AScriptInsideAScriptTakesItsPlace) {
  const std::filesystem::path inner =
      make("inner.scr", base::toUtf8(L"; remark\nOPEN \"" + one_ + L"\"\nVISIT\n"));
  const std::wstring outer =
      text(make("outer.scr", base::toUtf8(L"SCRIPT\n\"" + text(inner) + L"\"\nNO_SUCH_COMMAND\n")));
  EXPECT_TRUE(host().execute(L"SCRIPT " + outer).ok());
  EXPECT_EQ(visited.size(), 1u);
}

}  // namespace
