#include <utility>

#include "aced.h"
#include "base/codepage.h"
#include "tests/embedded/editor/host_fixture.h"

namespace {

using cad_test::HostTest;

std::vector<std::wstring> visited;

void visit() {
  visited.push_back(acDocManager->curDocument()->docTitle());
  resbuf* filter = acutBuildList(RTDXF0, L"TEXT", RTNONE);
  ads_name set;
  const bool hasTexts = !cad::Host::instance().currentDrawing().path().empty();
  EXPECT_EQ(acedSSGet(L"X", nullptr, nullptr, filter, set), hasTexts ? RTNORM : RTERROR);
  acutRelRb(filter);
  if (hasTexts) acedSSFree(set);
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
  base::Status run(const std::wstring& script) {
    return host().execute(L"SCRIPT " + text(make("run.scr", utf16(script))));
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

TEST_F(Script, ARefusalSuspendsItUntilItIsResumed) {
  EXPECT_FALSE(host().execute(L"RESUME").ok());
  EXPECT_TRUE(printedHas(L"No script is suspended."));
  EXPECT_FALSE(host().execute(L"SCRIPT " + text(folder_ / "no.scr")).ok());
  const std::wstring missing = L"OPEN\n\"" + text(folder_ / "no.dxf") + L"\"\n";
  EXPECT_FALSE(run(L"VISIT\n; remark\n" + missing + L"VISIT\n" + missing + L"VISIT\n").ok());
  EXPECT_TRUE(printedHas(L"run.scr: The script was suspended in line 4; RESUME goes on behind it."));
  EXPECT_EQ(visited.size(), 1u);
  EXPECT_TRUE(host().execute(L"REGEN").ok());
  EXPECT_FALSE(host().execute(L"'_RESUME").ok());
  EXPECT_TRUE(printedHas(L"in line 7;"));
  EXPECT_EQ(visited.size(), 2u);
  EXPECT_TRUE(run(L"VISIT").ok()) << "another one takes its place";
  EXPECT_FALSE(host().execute(L"RESUME").ok());
  EXPECT_EQ(visited.size(), 3u);
}

TEST_F(Script, EscSuspendsItBehindTheDrawingUnderWay) {
  bool isPressed = true;
  host().setBreakQuery([&] { return std::exchange(isPressed, false); });
  std::vector<std::wstring> seen;
  host().setScriptObserver([&](const cad::ScriptProgress& now) {
    seen.push_back(std::to_wstring(static_cast<int>(now.state)) + L" " + std::to_wstring(now.drawing) + L"/" +
                   std::to_wstring(now.drawings) + L" " + now.name);
  });
  EXPECT_FALSE(run(batch()).ok());
  EXPECT_EQ(visited, std::vector<std::wstring>{L"first plan.dxf"});
  isPressed = false;
  EXPECT_TRUE(host().execute(L"RESUME").ok());
  EXPECT_EQ(visited.size(), 2u);
  host().setBreakQuery({});
  host().setScriptObserver({});
  const std::vector<std::wstring> expected = {
      L"0 0/2 ",          L"0 1/2 first plan.dxf", L"1 1/2 first plan.dxf", L"0 1/2 first plan.dxf",
      L"0 2/2 図面2.dxf", L"2 2/2 図面2.dxf"};
  EXPECT_EQ(seen, expected);
}

TEST_F(Script, WhatIsSentMeanwhileRunsWhenItHasEndedOrIsSuspended) {
  struct Resumer : AcEditorReactor {
    void commandFailed(const ACHAR* name) override {
      if (std::wstring(name) == L"OPEN")
        acDocManager->sendStringToExecute(acDocManager->curDocument(), L"RESUME\n", false, false, false);
    }
  } resumer;
  acedEditor->addReactor(&resumer);
  acedRegCmds->addCommand(L"TEST_GROUP", L"SENDS", L"SN", ACRX_CMD_MODAL, [] {
    acDocManager->sendStringToExecute(acDocManager->curDocument(), L"\x03VISIT\n");
    visited.push_back(L"sent");
  });
  const std::wstring missing = L"OPEN\n\"" + text(folder_ / "no.dxf") + L"\"\n";
  EXPECT_FALSE(run(L"SENDS\n" + missing + missing + batch() + missing).ok());
  acedEditor->removeReactor(&resumer);
  const std::vector<std::wstring> expected = {L"sent", L"Drawing1.dwg", L"first plan.dxf", L"図面2.dxf"};
  EXPECT_EQ(visited, expected);
  EXPECT_FALSE(host().execute(L"RESUME").ok()) << "it has ended";
}

TEST_F(Script, BlanksAndLineEndsAreEnterAndRemarksMayStandAnywhere) {
  EXPECT_TRUE(run(L"_.OPEN\n; remark\n\"" + one_ + L"\"\n-INSERT DOOR S 1\n;\nR 0 5,5").ok());
  EXPECT_EQ(savedBytes().find(cad_test::drawingText()), std::string::npos);
  EXPECT_TRUE(run(L"-INSERT DOOR\n; of 7\nS").ok());
  EXPECT_TRUE(host().hasOpenPrompt()) << "the rest is typed";
  EXPECT_TRUE(host().execute(L"1 R 0 7,7").ok());
  EXPECT_FALSE(host().hasOpenPrompt());
  EXPECT_FALSE(run(L"OPEN " + one_).ok()) << "a blank ends a name that no quotes hold together";
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
