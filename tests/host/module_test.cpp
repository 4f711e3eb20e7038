// The module as the host loads it, driven by its exported functions alone. What a conversion and a check give
// is seen in the tests of the command line, which calls the same functions. The application messages are
// handed to the entry point that is linked into this program.

#include "host/module.h"

#include "accmd.h"
#include "embedded/editor/host.h"
#include "host/automation.h"
#include "rxdefs.h"
#include "tests/support/temp_folder.h"

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet);

namespace {

namespace fs = std::filesystem;

// [文字] [***] { [色] = 3 }, in code page 932.
constexpr char kRules[] = "[\x95\xb6\x8e\x9a]\r\n[***]\r\n{\r\n[\x90\x46] = 3\r\n}\r\n---End---\r\n[EOF]\r\n";

class Module : public test_support::TempFolder {
 protected:
  void SetUp() override {
    fs::create_directories(folder_ / "out");
    make("rules.cvt", kRules);
    host().setOutput([this](std::wstring_view text) { printed_ += text; });
    host().start();
    ASSERT_TRUE(load());
  }
  void TearDown() override {
    host().stop();
    host().setOutput({});
  }
  static cad::Host& host() { return cad::Host::instance(); }
  bool load() { return host().loadModule(KIVGUI_MODULE).ok(); }
  template <class Function>
  Function symbol(const char* name) {
    return reinterpret_cast<Function>(host().moduleSymbol(L"KIVGUI.ARX", name));
  }
  KivRunReport report() {
    KivRunReport result{};
    EXPECT_EQ(symbol<KivLastRunReport>("dll_kiv_lastRunReport")(&result), 1);
    return result;
  }
  int setConversion(const KivConversion* conversion) {
    return symbol<KivSetConversion>("dll_kiv_setConversion")(conversion);
  }
  int setConversion(const fs::path& rules, const fs::path& log = {}) {
    const std::wstring specification = base::pathText(rules), out = base::pathText(folder_ / "out"),
                       logFile = base::pathText(log);
    const KivConversion conversion{specification.c_str(), out.c_str(), 1, 0, 0, logFile.c_str()};
    return setConversion(&conversion);
  }

  std::wstring printed_;
};

TEST_F(Module, CommandsComeAndGoWithTheModule) {
  for (int round = 0; round < 2; ++round) {
    for (const wchar_t* command : {L"KIV_TOACAD2", L"UT2", L"KIV_TOACAD", L"UT"}) {
      EXPECT_TRUE(host().execute(command).ok()) << round;
    }
    EXPECT_TRUE(host().unloadModule(L"KIVGUI.ARX").ok());
    EXPECT_FALSE(host().execute(L"KIV_TOACAD2").ok());
    EXPECT_FALSE(host().execute(L"UT").ok());
    ASSERT_TRUE(load());
  }
}

TEST_F(Module, UnloadedModuleLeavesTheProcess) {
  EXPECT_TRUE(host().execute(L"KIV_TOACAD2").ok());
  EXPECT_EQ(report().runs, 1);
  EXPECT_TRUE(host().unloadModule(L"KIVGUI.ARX").ok());
  ASSERT_TRUE(load());
  EXPECT_EQ(report().runs, 0);
}

TEST_F(Module, InteractiveCommandSaysThatThereIsNoDialog) {
  printed_.clear();
  EXPECT_TRUE(host().execute(L"KIV_TOACAD").ok());
  EXPECT_NE(printed_.find(L"ﾀﾞｲｱﾛｸﾞ"), std::wstring::npos);
  EXPECT_EQ(report().runs, 0);
}

TEST_F(Module, RunWithoutAContextRefuses) {
  EXPECT_EQ(report().end, kKivNeverRun);
  EXPECT_TRUE(host().execute(L"KIV_TOACAD2").ok());
  EXPECT_NE(printed_.find(L"\nKivｴﾗｰ:このｺﾏﾝﾄﾞは単独では実行できません."), std::wstring::npos);
  EXPECT_EQ(report().runs, 1);
  EXPECT_EQ(report().end, kKivNoSpecification);
}

TEST_F(Module, RefusalsAreLoggedAndEmptyDrawingsAreNot) {
  ASSERT_EQ(setConversion(folder_ / "none.cvt", folder_ / "run.log"), 1);
  EXPECT_TRUE(host().execute(L"KIV_TOACAD2").ok());
  EXPECT_EQ(report().end, kKivSpecificationUnreadable);
  ASSERT_EQ(report().problemCount, 1);
  const std::string afterRefusal = content(folder_ / "run.log");
  EXPECT_NE(afterRefusal.find("none.cvt]"), std::string::npos);

  ASSERT_EQ(setConversion(folder_ / "rules.cvt", folder_ / "run.log"), 1);
  make("empty.dxf", "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n");
  ASSERT_TRUE(host().openDocument(folder_ / "empty.dxf").ok());
  EXPECT_TRUE(host().execute(L"KIV_TOACAD2").ok());
  EXPECT_EQ(report().end, kKivEmptyDrawing);
  EXPECT_EQ(content(folder_ / "run.log"), afterRefusal);
}

TEST_F(Module, OptionsOutOfRangeAndGivingUpTheContext) {
  KivConversion conversion{};
  conversion.saveFormat = 3;
  EXPECT_EQ(setConversion(&conversion), 0);
  ASSERT_EQ(setConversion(folder_ / "rules.cvt"), 1);
  EXPECT_EQ(setConversion(nullptr), 1);
  EXPECT_TRUE(host().execute(L"KIV_TOACAD2").ok());
  EXPECT_EQ(report().end, kKivNoSpecification);
}

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

}  // namespace
