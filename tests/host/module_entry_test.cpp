// The application messages, handed to the entry point itself.

#include <gtest/gtest.h>

#include <filesystem>

#include "accmd.h"
#include "base/files.h"
#include "embedded/editor/host.h"
#include "host/commands.h"
#include "host/module_state.h"
#include "rxdefs.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);

namespace {

class ModuleEntry : public testing::Test {
 protected:
  void SetUp() override { cad::Host::instance().start(); }
  void TearDown() override {
    send(AcRx::kUnloadAppMsg);
    cad::Host::instance().stop();
  }
  void send(AcRx::AppMsgCode message) { EXPECT_EQ(acrxEntryPoint(message, nullptr), AcRx::kRetOK); }
  const AcEdCommand* command(const wchar_t* name) { return acedRegCmds->lookupCmd(name, true); }
};

TEST_F(ModuleEntry, CommandsOfTheGroup) {
  send(AcRx::kInitAppMsg);
  const struct {
    const wchar_t *global, *local;
    AcRxFunctionPtr handler;
  } wanted[] = {{L"KIV_TOACAD", L"UT", kiv::interactiveCommand},
                {L"KIV_TOACAD2", L"UT2", kiv::conversionCommand}};
  for (const auto& each : wanted) {
    const AcEdCommand* found = command(each.global);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->localName(), std::wstring(each.local));
    EXPECT_EQ(found->commandFlags(), ACRX_CMD_MODAL);
    EXPECT_EQ(found->functionAddr(), each.handler);
  }
  EXPECT_EQ(acedRegCmds->removeGroup(L"KIV_UTIL2"), Acad::eOk);
  EXPECT_EQ(command(L"KIV_TOACAD"), nullptr);
  EXPECT_EQ(command(L"KIV_TOACAD2"), nullptr);
}

TEST_F(ModuleEntry, ACommandThatIsTakenAlreadyIsNamed) {
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  acedRegCmds->addCommand(L"KIV_UTIL2", L"OTHER", L"UT2", ACRX_CMD_MODAL, [] {});
  send(AcRx::kInitAppMsg);
  cad::Host::instance().setOutput({});
  EXPECT_EQ(printed, L"\nKivｴﾗｰ:ｺﾏﾝﾄﾞ[KIV_TOACAD2]を登録できませんでした.");
}

TEST_F(ModuleEntry, RepeatedMessagesDoNothingAgain) {
  send(AcRx::kInitAppMsg);
  const AcEdCommand* first = command(L"KIV_TOACAD");
  send(AcRx::kInitAppMsg);
  EXPECT_EQ(command(L"KIV_TOACAD"), first);

  send(AcRx::kUnloadAppMsg);
  EXPECT_EQ(command(L"KIV_TOACAD"), nullptr);
  // What another one has registered meanwhile under the group stays.
  kiv::registerCommands();
  send(AcRx::kQuitMsg);
  EXPECT_NE(command(L"KIV_TOACAD"), nullptr);
  kiv::removeCommands();
}

TEST_F(ModuleEntry, StartupFolderIsTheOneAtInitialisation) {
  namespace fs = std::filesystem;
  const fs::path before = fs::current_path();
  fs::current_path(fs::temp_directory_path());
  const std::wstring expected = base::pathText(fs::current_path());
  send(AcRx::kInitAppMsg);
  fs::current_path(before);
  send(AcRx::kLoadDwgMsg);
  EXPECT_EQ(kiv::moduleState().startupFolder, expected);
}

}  // namespace
