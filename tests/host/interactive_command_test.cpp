// The interactive command in the embedded host: the host's input source is the person, who acts in the
// dialog each time that the command waits.

#include <deque>
#include <functional>

#include "base/clock.h"
#include "base/codepage.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "embedded/editor/host.h"
#include "host/conversion_context.h"
#include "host/module.h"
#include "host/run_report.h"
#include "platform/settings.h"
#include "siblings/common/host_releases.h"
#include "tests/support/temp_folder.h"
#include "tests/support/test_file.h"
#include "tests/ui/user.h"
#include "ui/main_dialog.h"
#include "ui/resource.h"

namespace kiv::testing {
namespace {

// A line, and a dimension whose arrows have a size of their own.
constexpr char kDrawing[] =
    "  0\r\nSECTION\r\n  2\r\nBLOCKS\r\n  0\r\nBLOCK\r\n  8\r\n0\r\n  2\r\n*D1\r\n 70\r\n     1\r\n "
    "10\r\n0\r\n "
    "20\r\n0\r\n  3\r\n*D1\r\n"
    "  0\r\nLINE\r\n  8\r\n0\r\n 10\r\n0\r\n 20\r\n40\r\n 11\r\n10\r\n 21\r\n40\r\n  0\r\nENDBLK\r\n  "
    "8\r\n0\r\n  0\r\nENDSEC\r\n"
    "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nLINE\r\n  8\r\nWALL\r\n 10\r\n0.0\r\n 20\r\n0.0\r\n "
    "11\r\n10.0\r\n 21\r\n0.0\r\n"
    "  0\r\nDIMENSION\r\n  8\r\n0\r\n  2\r\n*D1\r\n 10\r\n0\r\n 20\r\n40\r\n 70\r\n     0\r\n  "
    "3\r\nSTANDARD\r\n"
    "1001\r\nACAD\r\n1000\r\nDSTYLE\r\n1002\r\n{\r\n1070\r\n    41\r\n1040\r\n3.5\r\n1002\r\n}\r\n"
    "  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
constexpr wchar_t kRules[] =
    L"[備考]\r\n\r\n\r\n[その他の図形]\r\n[画層] = WALL\r\n{\r\n[色] = 3\r\n}\r\n---End---\r\n[EOF]\r\n";

constexpr const wchar_t* kTitle = L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ";
constexpr const wchar_t* kKeys[] = {L"KivBlock", L"MorluxIgnoreLocks", L"MorluxCreateLog",
                                    L"MorluxLogOutPath", L"MorluxLogOutFile"};

class InteractiveCommand : public test_support::TempFolder {
 protected:
  void SetUp() override {
    make("KIVGUI.ARX", "");
    std::filesystem::create_directories(folder_ / "CFG");
    makeText("CFG/RULES.CVT", kRules);
    make("CFG/KivCvtInit.dat", "RULES.CVT\r\n");
    for (const wchar_t* key : kKeys) writeCommonText(key, L"");
    host().setOutput([this](std::wstring_view text) { printed_ += text; });
    host().setSupportPath({folder_});
    host().setInputSource([this] { return nextInput(); });
    host().start();
    ASSERT_TRUE(host().openDocument(make("a.dxf", kDrawing)).ok());
    registerCommands();
  }
  void TearDown() override {
    EXPECT_TRUE(acts_.empty());
    conversionContext() = {};
    EXPECT_TRUE(user::shownDialogs().empty());
    removeCommands();
    host().stop();
    host().setInputSource({});
    host().setSupportPath({});
    host().setOutput({});
    base::setClock({});
  }
  static cad::Host& host() { return cad::Host::instance(); }
  void run() { EXPECT_TRUE(host().execute(L"KIV_TOACAD").ok()); }
  // Acts in the dialog at the next wait.
  void then(std::function<void()> act) {
    acts_.push_back([act = std::move(act)] {
      act();
      return cad::InputEvent{5};
    });
  }
  void thenClicks(int id) {
    then([this, id] { user_.click(window(), id); });
  }
  void thenPicksAt(double x, double y) {
    acts_.push_back([x, y] { return cad::InputEvent{3, 0, x, y, 0.1}; });
  }
  // And picks for what is chosen in it.
  void thenOpensThePicker(
      int command = 40031, const std::function<void()>& choose = [] {}) {
    then([this, command, choose] {
      const TreeItem section = user_.item(window(), IDC_MAIN_TREE, {L"図面", L"文字"});
      user_.choosesMenu(IDC_ADD_SETTING);
      user_.rightClickItem(window(), IDC_MAIN_TREE, section);
      user_.choosesMenu(command);
      user_.rightClickItem(window(), IDC_MAIN_TREE,
                           user_.item(window(), IDC_MAIN_TREE, {L"図面", L"文字", L"設定1"}));
      choose();
      user_.click(*user::shownDialogs().front(), IDC_PICK);
      EXPECT_TRUE(user::shownDialogs().empty());
    });
  }
  DialogWindow& window() { return conversionContext().dialog->window(); }
  bool printed(const std::wstring& text) const { return printed_.find(text) != std::wstring::npos; }
  static std::wstring setting(const wchar_t* key) { return readCommonText(key, L"-"); }

  std::optional<cad::InputEvent> nextInput() {
    if (acts_.empty()) return std::nullopt;
    const auto act = std::move(acts_.front());
    acts_.pop_front();
    return act();
  }

  test::User user_;
  std::deque<std::function<cad::InputEvent()>> acts_;
  std::wstring printed_;
};

TEST_F(InteractiveCommand, CancelStoresNothing) {
  for (const wchar_t* key : kKeys) writeCommonText(key, L"1");
  const std::string initial = content("CFG/KivCvtInit.dat");
  thenClicks(IDC_MAIN_IGNORE_LOCKS);
  thenClicks(IDC_MAIN_BLOCK_BOTH);
  thenClicks(IDC_MAIN_DEFAULT);
  thenClicks(IDCANCEL);
  run();
  EXPECT_EQ(conversionContext().dialog, nullptr);
  EXPECT_FALSE(conversionContext().dialogRect.isEmpty());
  for (const wchar_t* key : {L"KivBlock", L"MorluxIgnoreLocks", L"MorluxCreateLog", L"MorluxLogOutPath"}) {
    EXPECT_EQ(setting(key), L"1") << base::pathFromText(key);
  }
  EXPECT_EQ(setting(L"MorluxLogOutFile"), L"");
  EXPECT_EQ(content("CFG/KivCvtInit.dat"), initial);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "CFG" / base::pathFromText(kWorkFileName)));
  EXPECT_TRUE(conversionContext().contextPaths[kSpecificationPath].empty());
}

TEST_F(InteractiveCommand, ConvertsTheDrawingAndStoresTheOptions) {
  base::setClock([] { return std::time_t{1'700'000'000}; });
  const std::wstring logName = base::localTimeText(L"%Y%m%d_%Hh%Mm%SsMorlux.log");
  const std::filesystem::path logs = folder_ / "logs";
  const int runs = lastRun().runs;
  thenClicks(IDC_MAIN_IGNORE_LOCKS);
  thenClicks(IDC_MAIN_BLOCK_INSIDE);
  thenClicks(IDC_MAIN_CREATE_LOG);
  then([&] { user_.type(window(), IDC_MAIN_LOG_FOLDER, base::pathText(logs / "")); });
  then([&] {
    user_.answersMessage({L"変換を完了しました", kTitle}, Answer::kOk);
    user_.click(window(), IDOK);
  });
  run();
  EXPECT_EQ(conversionContext().dialog, nullptr);
  EXPECT_EQ(setting(L"KivBlock"), L"1");
  EXPECT_EQ(setting(L"MorluxIgnoreLocks"), L"1");
  EXPECT_EQ(setting(L"MorluxCreateLog"), L"1");
  EXPECT_EQ(setting(L"MorluxLogOutPath"), base::pathText(logs / ""));
  EXPECT_EQ(setting(L"MorluxLogOutFile"), L"");
  EXPECT_EQ(lastRun().runs, runs + 1);
  EXPECT_EQ(lastRun().end, kKivConverted);
  EXPECT_EQ(lastRun().savedPath, std::wstring());
  EXPECT_TRUE(std::filesystem::exists(logs / base::pathFromText(logName)));
  const std::filesystem::path work = base::pathFromText(conversionContext().contextPaths[kSpecificationPath]);
  EXPECT_EQ(base::pathText(work.filename()), kWorkFileName);
  EXPECT_TRUE(std::filesystem::exists(work));
  EXPECT_TRUE(host().execute(L"_QSAVE").ok());
  EXPECT_NE(content("a.dxf").find(" 62\r\n     3\r\n"), std::string::npos);
}

TEST_F(InteractiveCommand, ALogThatCannotBeNamedStopsTheRun) {
  base::setClock([] { return std::numeric_limits<std::time_t>::max(); });
  const int runs = lastRun().runs;
  thenClicks(IDC_MAIN_CREATE_LOG);
  then([this] { user_.type(window(), IDC_MAIN_LOG_FOLDER, base::pathText(folder_ / "logs")); });
  thenClicks(IDOK);
  run();
  EXPECT_TRUE(printed(L"処理を中断しました"));
  EXPECT_EQ(lastRun().runs, runs);
  conversionContext().dialog.reset();
}

TEST_F(InteractiveCommand, WithoutALogItsFolderIsKeptForTheNextTime) {
  writeCommonText(L"MorluxLogOutPath", base::pathText(folder_ / "logs").c_str());
  writeCommonText(L"KivBlock", L"9");
  then([this] {
    user_.answersMessage({L"変換を完了しました", kTitle}, Answer::kOk);
    user_.click(window(), IDOK);
  });
  run();
  EXPECT_EQ(setting(L"MorluxLogOutPath"), base::pathText(folder_ / "logs"));
  EXPECT_EQ(setting(L"MorluxCreateLog"), L"0");
  EXPECT_EQ(setting(L"MorluxIgnoreLocks"), L"0");
  EXPECT_EQ(setting(L"KivBlock"), L"2");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "logs"));
}

TEST_F(InteractiveCommand, AValueIsTakenFromTheDrawing) {
  thenOpensThePicker();
  thenPicksAt(5, 0);
  then([this] {
    DialogWindow& picker = *user_.shown(IDD_VALUE);
    EXPECT_EQ(picker.text(IDC_VALUE_COMBO), L"WALL");
    user_.cannotClick(window(), IDCANCEL);
    user_.click(picker, IDC_PICK);
  });
  // Nothing lies there: the picker comes back as it was.
  thenPicksAt(500, 500);
  then([this] {
    DialogWindow& picker = *user_.shown(IDD_VALUE);
    EXPECT_EQ(picker.text(IDC_VALUE_COMBO), L"WALL");
    user_.click(picker, IDOK);
    EXPECT_EQ(conversionContext().dialog->specification().settings(1)[0].results[0].value, L"WALL");
  });
  thenClicks(IDCANCEL);
  run();
  EXPECT_TRUE(printed(L"\n画層を指示:"));
  EXPECT_EQ(conversionContext().pick.request, 0);
}

TEST_F(InteractiveCommand, WhatIsPickedOffAnEntityOfAnotherKindIsNoValue) {
  thenOpensThePicker(40035);
  thenPicksAt(5, 0);  // a line has no text height
  then([this] {
    DialogWindow& picker = *user_.shown(IDD_VALUE);
    EXPECT_EQ(picker.text(IDC_VALUE_COMBO), L"");
    user_.close(picker);
  });
  thenClicks(IDCANCEL);
  run();
  EXPECT_TRUE(printed(L"\n文字高さを指示:"));
}

TEST_F(InteractiveCommand, ADimensionGivesTheVariableThatIsAskedFor) {
  thenOpensThePicker(
      40038, [this] { user_.chooseEntry(*user_.shown(IDD_DIMENSION), IDC_DIMENSION_VARIABLE, L"DIMASZ"); });
  thenPicksAt(5, 40);
  then([this] {
    user_.click(*user_.shown(IDD_DIMENSION), IDOK);
    const Item& result = conversionContext().dialog->specification().settings(1)[0].results[0];
    EXPECT_EQ(result.variable, L"DIMASZ");
    EXPECT_EQ(result.value, L"3.5");
  });
  thenClicks(IDCANCEL);
  run();
  EXPECT_TRUE(printed(L"\n寸法設定を指示:"));
}

TEST_F(InteractiveCommand, TextStylesOfTheDialogComeIntoTheDrawing) {
  make("OFFICE.SHX", "unifont 1.0\r\n");
  make("KANJI.SHX", "bigfont 1.0\r\n");
  ASSERT_TRUE(
      host().openDocument(make("plan.dxf", test_support::testFile("../examples/floor-plan.dxf"))).ok());
  const std::vector<std::wstring> section{L"図面", L"字体のﾛｰﾄﾞ"};
  const auto adds = [&](const wchar_t* style, const std::function<void(DialogWindow&)>& choose) {
    then([this, section, style, choose] {
      user_.choosesMenu(IDC_ADD_ENTRY);
      user_.rightClickItem(window(), IDC_MAIN_TREE, user_.item(window(), IDC_MAIN_TREE, section));
      DialogWindow& loader = *user_.shown(IDD_FONT);
      user_.type(loader, IDC_FONT_STYLE, style);
      choose(loader);
      user_.click(loader, IDOK);
    });
  };
  adds(L"GOTHIC", [this](DialogWindow& loader) { user_.type(loader, IDC_FONT_MAIN, L"MS Gothic"); });
  adds(L"STROKES", [this](DialogWindow& loader) {
    user_.click(loader, IDC_FONT_SHAPES);
    user_.chooseEntry(loader, IDC_FONT_MAIN, L"OFFICE.SHX");
    user_.click(loader, IDC_FONT_USE_BIG);
    user_.chooseEntry(loader, IDC_FONT_SECOND, L"KANJI.SHX");
  });
  then([&] {
    user_.inDialog(IDD_SAVE, [this](DialogWindow& browser) {
      user_.type(browser, IDC_SAVE_NAME, L"fonts");
      user_.click(browser, IDOK);
    });
    user_.click(window(), IDC_MAIN_SAVE);
    user_.inDialog(IDD_LOAD, [this](DialogWindow& browser) {
      const bool isFirst = browser.list(IDC_LOAD_LIST).cell(0, 0) == L"fonts.cvt";
      user_.clickRow(browser, IDC_LOAD_LIST, isFirst ? 0 : 1);
      user_.click(browser, IDOK);
    });
    user_.click(window(), IDC_MAIN_LOAD);
    EXPECT_EQ(test::treeText(window(), IDC_MAIN_TREE, user_.item(window(), IDC_MAIN_TREE, section)),
              L"<GOTHIC> を <MS GOTHIC> で設定\n<STROKES> を <OFFICE.SHX, KANJI.SHX> で設定\n");
  });
  then([this] {
    user_.answersMessage({L"変換を完了しました", kTitle}, Answer::kOk);
    user_.click(window(), IDOK);
  });
  run();
  EXPECT_NE(
      content("CFG/fonts.cvt").find("GOTHIC, MS Gothic, ----------\r\nSTROKES, OFFICE.SHX, KANJI.SHX\r\n"),
      std::string::npos);
  const auto fonts = [](const wchar_t* name) {
    AcDbTextStyleTableRecordPointer style(name, acdbHostApplicationServices()->workingDatabase(),
                                          AcDb::kForRead);
    AcString file, bigFont;
    if (style.openStatus() != Acad::eOk) return std::wstring(L"(none)");
    EXPECT_TRUE(style->fileName(file) == Acad::eOk && style->bigFontFileName(bigFont) == Acad::eOk);
    return typefaceOf(*style.object()).constPtr() + std::wstring(L"|") + file.constPtr() + L"|" +
           bigFont.constPtr();
  };
  EXPECT_EQ(fonts(L"GOTHIC"), L"MS GOTHIC|msgothic.ttc|");
  EXPECT_EQ(fonts(L"STROKES"), L"|OFFICE.SHX|KANJI.SHX");
}

TEST_F(InteractiveCommand, ASessionThatEndsWithAnOpenPickerLeavesTheHostUsable) {
  thenOpensThePicker();  // and nobody picks
  run();
  EXPECT_EQ(conversionContext().dialog, nullptr);
  EXPECT_TRUE(user::shownDialogs().empty());
  run();
  EXPECT_EQ(conversionContext().dialog, nullptr);
  thenClicks(IDCANCEL);
  run();
}

}  // namespace
}  // namespace kiv::testing
