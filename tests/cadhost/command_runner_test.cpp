#include "cadhost/command_runner.h"

#include <gtest/gtest.h>

#include <vector>

#include "acadstrc.h"
#include "accmd.h"
#include "acedads.h"
#include "acutads.h"
#include "rxregsvc.h"

namespace cadhost {
namespace {

// A command that waits until it is cancelled, as one with a modeless dialog does.
void waitForCancel() {
  int type = 0;
  resbuf event{};
  while (acedGrRead(15, &type, &event) == RTNORM && event.resval.rint != kCancelKey) {
  }
  acutPrintf(L"<cancelled>");
}
void sayDone() { acutPrintf(L"<done>"); }
void fail() { throw 1; }

class CommandRunnerTest : public testing::Test {
 protected:
  CommandRunnerTest() : runner(host, input) {
    host.start();
    host.setOutput([this](std::wstring_view text) { printed += text; });
    runner.setHands({[this](std::wstring_view text) { printed += text; }, [this] { ++begun; },
                     [this] { ++ended; },
                     [this](bool discard) { return quits.push_back(discard), discard; }});
    acedRegCmds->addCommand(L"RUNNER", L"WAIT", L"WAIT", ACRX_CMD_MODAL, waitForCancel);
    acedRegCmds->addCommand(L"RUNNER", L"DONE", L"DONE", ACRX_CMD_MODAL, sayDone);
    acedRegCmds->addCommand(L"RUNNER", L"FAIL", L"FAIL", ACRX_CMD_MODAL, fail);
  }
  ~CommandRunnerTest() override {
    acedRegCmds->removeGroup(L"RUNNER");
    host.setInputSource({});
    host.setOutput({});
    host.stop();
  }
  bool hasPrinted(const std::wstring& text) const { return printed.find(text) != std::wstring::npos; }

  cad::Host& host = cad::Host::instance();
  InputQueue input;
  CommandRunner runner;
  std::wstring printed;
  std::vector<bool> quits;
  int begun = 0, ended = 0;
};

TEST_F(CommandRunnerTest, ACommandTypedWhileAnotherWaitsRunsAfterIt) {
  host.setInputSource([this] {
    const InputQueue::Waiting waiting(input);
    input.type(L"DONE\n", L"");
    runner.runLines();  // as a message that arrives meanwhile makes it
    EXPECT_FALSE(hasPrinted(L"<done>"));
    input.type(L"\x03", L"");
    return input.takeEvent(false);
  });
  input.enter(L"WAIT");
  runner.runLines();
  EXPECT_LT(printed.find(L"<cancelled>"), printed.find(L"<done>"));
  EXPECT_TRUE(hasPrinted(L"<done>"));
  EXPECT_EQ(begun, 2);
  EXPECT_EQ(ended, 2);
}

TEST_F(CommandRunnerTest, ACommandThatFailsLeavesTheNextOneItsTurn) {
  input.enter(L"FAIL");
  input.enter(L"NO_SUCH_COMMAND");
  input.enter(L"DONE");
  runner.runLines();
  EXPECT_TRUE(hasPrinted(L"NO_SUCH_COMMAND"));
  EXPECT_TRUE(hasPrinted(L"<done>"));
  EXPECT_FALSE(input.isRunning());
}

TEST_F(CommandRunnerTest, TheLinesOfOneCommandBelongTogether) {
  input.enter(L"-INSERT");
  runner.runLines();
  EXPECT_TRUE(host.hasOpenPrompt());
  input.enter(L"QUIT");  // a block's name now
  runner.runLines();
  EXPECT_TRUE(quits.empty());
}

TEST_F(CommandRunnerTest, ACancelClosesThePromptOfTheLinesBeforeIt) {
  input.type(
      L"-INSERT\n\x03"
      L"DONE\n-INSERT\n",
      L"");
  runner.runLines();
  EXPECT_TRUE(hasPrinted(L"*キャンセル*\nコマンド: DONE<done>"));
  EXPECT_TRUE(host.hasOpenPrompt()) << "of the line behind";
  input.cancel();
  runner.runLines();
  EXPECT_FALSE(host.hasOpenPrompt());
}

TEST_F(CommandRunnerTest, QuitIsForTheWindow) {
  input.enter(L"_QUIT");
  input.enter(L"quit y");
  input.enter(L"DONE");
  runner.runLines();
  EXPECT_FALSE(hasPrinted(L"<done>"));
  EXPECT_EQ(quits, (std::vector<bool>{false, true}));
  EXPECT_EQ(host.documentCount(), 1u);
}

}  // namespace
}  // namespace cadhost
