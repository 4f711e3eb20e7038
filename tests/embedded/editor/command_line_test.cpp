#include <stdexcept>
#include <utility>

#include "accmd.h"
#include "aced.h"
#include "acedCmdNF.h"
#include "rxdlinkr.h"
#include "tests/embedded/editor/host_fixture.h"
#include "tests/support/in_command.h"

namespace {

using cad_test::HostTest;
using test_support::inCommand;

std::vector<std::wstring> calls;

void recolour() {
  calls.push_back(L"recolour");
  cad::Drawing& drawing = cad::Host::instance().currentDrawing();
  const cad::RecordId first = drawing.entitiesOf(drawing.modelSpace()).front();
  EXPECT_TRUE(drawing.setInteger(first, cad::Property::kColorIndex, 3).ok());
  EXPECT_TRUE(drawing.setReal(first, cad::Property::kTextHeight, 9).ok());
}

void groupedRecolour() {
  EXPECT_EQ(acedCommandS(RTSTR, L"UNDO", RTSTR, L"BE", RTNONE), RTNORM);
  recolour();
  EXPECT_EQ(acedCommandS(RTSTR, L".REGEN", RTNONE), RTNORM);
  EXPECT_EQ(acedCommandS(RTNONE), RTNORM);
  EXPECT_EQ(acedCommandS(RTSTR, L"UNDO", RTSTR, L"E", RTNONE), RTNORM);
}

class Commands : public HostTest {
 protected:
  void SetUp() override {
    HostTest::SetUp();
    calls.clear();
    stack_ = acedRegCmds;
    ASSERT_NE(stack_, nullptr);
  }
  void TearDown() override {
    stack_->removeGroup(L"TEST_GROUP");
    HostTest::TearDown();
  }
  Acad::ErrorStatus add(const wchar_t* global, const wchar_t* local, AcRxFunctionPtr function) {
    return stack_->addCommand(L"TEST_GROUP", global, local, ACRX_CMD_MODAL, function);
  }
  AcEdCommandStack* stack_ = nullptr;
};

TEST_F(Commands, AreFoundByBothNamesUntilTheirGroupGoes) {
  ASSERT_EQ(add(L"LONG_NAME", L"LN", [] { calls.push_back(L"ran"); }), Acad::eOk);
  EXPECT_EQ(add(L"long_name", L"XX", [] {}), Acad::eDuplicateKey);
  EXPECT_TRUE(host().execute(L"long_name").ok());
  EXPECT_TRUE(host().execute(L"\x03\x03ln").ok());
  EXPECT_TRUE(host().execute(L"'_LONG_NAME").ok());
  EXPECT_FALSE(host().execute(L"_LN").ok());         // an underscore asks for the global name
  EXPECT_FALSE(host().execute(L".LONG_NAME").ok());  // a dot for the host's own command
  EXPECT_EQ(calls.size(), 3u);
  EXPECT_NE(stack_->lookupCmd(L"LN", false), nullptr);
  EXPECT_EQ(stack_->lookupCmd(L"LN", true), nullptr);
  EXPECT_EQ(stack_->removeGroup(L"test_group"), Acad::eOk);
  EXPECT_EQ(stack_->removeGroup(L"test_group"), Acad::eKeyNotFound);
  const base::Status gone = host().execute(L"LN");
  ASSERT_FALSE(gone.ok());
  EXPECT_NE(gone.failure().text().find(L"LN"), std::wstring::npos);
}

TEST_F(Commands, RegistryHoldsTheServices) {
  EXPECT_TRUE(acrxSysRegistry()->at(L"DynamicLinker")->isA()->isDerivedFrom(AcRxDynamicLinker::desc()));
  EXPECT_EQ(acrxSysRegistry()->at(L"Nothing"), nullptr);
}

TEST_F(Commands, OneUndoTakesBackOneGroup) {
  open();
  ASSERT_EQ(add(L"GROUPED", L"GR", groupedRecolour), Acad::eOk);
  ASSERT_TRUE(host().execute(L"GROUPED").ok());
  EXPECT_TRUE(drawing().isModified());
  EXPECT_NE(savedBytes(), cad_test::drawingFile());
  ASSERT_TRUE(host().execute(L"U").ok());
  EXPECT_EQ(savedBytes(), cad_test::drawingFile());
}

TEST_F(Commands, ACommandWithoutAGroupIsUndoneAsOne) {
  open();
  ASSERT_EQ(add(L"PLAIN", L"PL", recolour), Acad::eOk);
  ASSERT_TRUE(host().execute(L"PLAIN").ok());
  ASSERT_TRUE(host().execute(L"-INSERT DOOR S 1 R 0 0,0").ok());
  ASSERT_TRUE(host().execute(L"UNDO 2").ok());
  EXPECT_EQ(savedBytes(), cad_test::drawingFile());
  EXPECT_TRUE(host().execute(L"UNDO 1").ok());
  EXPECT_TRUE(printedHas(L"Everything has been undone"));
  EXPECT_FALSE(host().execute(L"UNDO SIDEWAYS").ok());
}

TEST_F(Commands, ATypedGroupHoldsSeveralCommands) {
  open();
  ASSERT_TRUE(
      host().execute(L"UNDO BEGIN\n-INSERT DOOR S 1 R 0 0,0\n-INSERT DOOR S 1 R 0 1,1\nUNDO END").ok());
  ASSERT_TRUE(host().execute(L"U").ok());
  EXPECT_EQ(savedBytes(), cad_test::drawingFile());
}

TEST_F(Commands, ASequenceIsCompleteWithinItsCall) {
  open();
  const std::size_t before = drawing().entitiesOf(drawing().modelSpace()).size();
  const ads_point at = {2, 3, 0};
  inCommand([&] {
    EXPECT_EQ(acedCommandS(RTSTR, L"-INSERT", RTSTR, L"DOOR", RTSTR, L"S", RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(RTREAL, 2.0, RTSTR, L"R", RTREAL, 90.0, RT3DPOINT, at, RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(), RTNORM);  // nothing is left to cancel
    EXPECT_EQ(drawing().entitiesOf(drawing().modelSpace()).size(), before);
    EXPECT_EQ(acedCommandS(RTSTR, L"-INSERT", RTSTR, L"DOOR", RTSTR, L"S", RTREAL, 2.0, RTSTR, L"R", RTREAL,
                           90.0, RT3DPOINT, at, RTNONE),
              RTNORM);
  });
  EXPECT_TRUE(printedHas(L"-INSERT: The command was cancelled: it needs more input."));
  EXPECT_EQ(drawing().entitiesOf(drawing().modelSpace()).size(), before + 1);
}

TEST_F(Commands, AreRunByAProgramInsideADocumentsCommandOnly) {
  EXPECT_EQ(acedCommandS(RTSTR, L"REGEN", RTNONE), RTERROR);
  EXPECT_EQ(acedCommandS(), RTERROR);
  EXPECT_TRUE(printedHas(L"while a command of the document is running"));
  inCommand([] { EXPECT_EQ(acedCommandS(RTSTR, L"REGEN", RTNONE), RTERROR); }, ACRX_CMD_SESSION);
  inCommand([] { EXPECT_EQ(acedCommandS(RTSTR, L"REGEN", RTNONE), RTNORM); });
}

TEST_F(Commands, RefuseTokensThatCannotBeTyped) {
  inCommand([] {
    EXPECT_EQ(acedCommandS(4711, L"REGEN", RTNONE), RTERROR);
    EXPECT_EQ(acedCommandS(8, L"REGEN", RTNONE), RTERROR);  // a drawing's group
    EXPECT_EQ(acedCommandS(RTSTR, L"NO_SUCH_COMMAND", RTNONE), RTERROR);
  });
  EXPECT_TRUE(printedHas(L"NO_SUCH_COMMAND"));
}

TEST_F(Commands, ABuiltinThatThrowsLeavesTheHostFree) {
  open();
  bool thrown = false;
  host().setOutput([&](std::wstring_view) {
    if (!std::exchange(thrown, true)) throw std::runtime_error("no output");
  });
  EXPECT_FALSE(host().execute(L"U").ok());  // it prints that there is nothing to undo
  EXPECT_TRUE(thrown);
  resbuf names{};
  ASSERT_EQ(acedGetVar(L"CMDNAMES", &names), RTNORM);
  EXPECT_EQ(std::wstring(names.resval.rstring), L"");
  acutDelString(names.resval.rstring);
  EXPECT_TRUE(host().execute(L"REGEN").ok());
}

TEST_F(Commands, AThrowingCommandIsARefusal) {
  ASSERT_EQ(add(L"THROWS", L"TH", [] { throw 1; }), Acad::eOk);
  EXPECT_FALSE(host().execute(L"THROWS").ok());
  EXPECT_TRUE(host().execute(L"REGEN").ok());
}

// What is told of commands; "once" goes after its first command.
struct Listener : AcEditorReactor {
  explicit Listener(std::wstring own) : own_(std::move(own)) { acedEditor->addReactor(this); }
  ~Listener() override { acedEditor->removeReactor(this); }
  void commandWillStart(const ACHAR* name) override { note(L" starts ", name); }
  void commandEnded(const ACHAR* name) override { note(L" ended ", name); }
  void commandCancelled(const ACHAR* name) override { note(L" cancelled ", name); }
  void commandFailed(const ACHAR* name) override { note(L" failed ", name); }

 private:
  void note(const wchar_t* what, const ACHAR* name) {
    calls.push_back(own_ + what + name);
    if (own_ == L"once") acedEditor->removeReactor(this);
  }
  std::wstring own_;
};

TEST_F(Commands, AreToldToReactors) {
  open();
  add(L"Outer", L"OU", [] { acedCommandS(RTSTR, L"_-INSERT", RTSTR, L"DOOR", RTNONE); });
  add(L"Throws", L"TH", [] { throw 1; });
  {
    const Listener once(L"once"), listener(L"all");
    EXPECT_TRUE(host().execute(L"ou").ok());
    EXPECT_FALSE(host().execute(L"TH").ok());
    EXPECT_TRUE(host().execute(L"-INSERT DOOR").ok());
    EXPECT_TRUE(host().execute(L"S 1").ok());
    EXPECT_TRUE(host().execute(L"\x03-INSERT DOOR S 1 R 0 0,0").ok());
  }
  EXPECT_TRUE(host().execute(L"REGEN").ok());
  const std::vector<std::wstring> expected = {
      L"once starts OUTER",     L"all starts OUTER",   L"all starts -INSERT", L"all cancelled -INSERT",
      L"all ended OUTER",       L"all starts THROWS",  L"all failed THROWS",  L"all starts -INSERT",
      L"all cancelled -INSERT", L"all starts -INSERT", L"all ended -INSERT"};
  EXPECT_EQ(calls, expected);
}

}  // namespace
