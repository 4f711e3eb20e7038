// Batches from the dialog's button to the report. The drawings are chosen by a sibling of the tests' own.

#include "host/batch.h"

#include <deque>
#include <functional>
#include <sstream>

#include "base/clock.h"
#include "base/codepage.h"
#include "embedded/drawing/drawing.h"
#include "embedded/editor/host.h"
#include "host/batch_report.h"
#include "host/batch_script.h"
#include "host/conversion_context.h"
#include "host/module.h"
#include "platform/settings.h"
#include "tests/embedded/dwg/whole_drawing.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/user.h"
#include "ui/main_dialog.h"
#include "ui/messages.h"
#include "ui/resource.h"

namespace kiv::testing {
namespace {

namespace fs = std::filesystem;

const std::string kHead = "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nTEXT\r\n  8\r\n0\r\n";
const std::string kTail =
    " 10\r\n0.0\r\n 20\r\n0.0\r\n 40\r\n2.5\r\n  1\r\nA\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
const std::string kDrawing = kHead + kTail;
const std::string kConverted = kHead + " 62\r\n     3\r\n" + kTail;
const std::string kEmpty = "  0\r\nSECTION\r\n  2\r\nENTITIES\r\n  0\r\nENDSEC\r\n  0\r\nEOF\r\n";
constexpr wchar_t kRules[] = L"[文字]\r\n[***]\r\n{\r\n[色] = 3\r\n}\r\n---End---\r\n[EOF]\r\n";

const std::wstring kStars = L"\n" + std::wstring(68, L'*');
const std::wstring kLine = L"\n" + std::wstring(68, L'-');

using Names = std::vector<std::wstring>;

class Batch : public test_support::TempFolder {
 protected:
  void SetUp() override {
    for (const char* name : {"CFG", "in", "out", "tmp"}) fs::create_directories(folder_ / name);
    make("KIVGUI.ARX", "");
    makeText("CFG/RULES.CVT", kRules);
    make("CFG/KivCvtInit.dat", "RULES.CVT\r\n");
    setTemporaryFolder(folder_ / "tmp");
    test_support::setEnvironment("KIV_TEST_CHOICE", folder_ / "choice");
    test_support::setTimeZone("UTC");
    base::setClock([] { return std::time_t{1794692250}; });  // 14 November 2026, 21:37:30
    writeCommonText(L"KivFileMode", L"1");
    writeCommonText(L"MorluxCreateLog", L"1");
    writeCommonText(L"MorluxLogOutPath", base::pathText(folder_ / "logs").c_str());
    host().setOutput([this](std::wstring_view text) { printed_ += text; });
    host().setSupportPath({folder_});
    host().setInputSource([this] { return nextInput(); });
    host().start();
    registerCommands();
  }
  void TearDown() override {
    EXPECT_TRUE(acts_.empty());
    conversionContext() = {};
    removeCommands();
    host().stop();
    host().setBreakQuery({});
    host().setInputSource({});
    host().setSupportPath({});
    host().setOutput({});
    base::setClock({});
    setTemporaryFolder(usualTemporaryFolder_);
  }
  static void setTemporaryFolder(const fs::path& folder) {
    for (const char* name : {"TMPDIR", "TMP", "TEMP"}) test_support::setEnvironment(name, folder);
  }
  static cad::Host& host() { return cad::Host::instance(); }
  static void type(const wchar_t* text) { static_cast<void>(host().execute(text)); }
  static DialogWindow& window() { return conversionContext().dialog->window(); }

  // The next time that the dialog waits.
  void then(std::function<void()> act) { acts_.push_back(std::move(act)); }
  void thenClicks(int id) {
    then([this, id] { user_.click(window(), id); });
  }
  std::optional<cad::InputEvent> nextInput() {
    if (acts_.empty()) return std::nullopt;
    const auto act = std::move(acts_.front());
    acts_.pop_front();
    act();
    return cad::InputEvent{5};
  }

  std::wstring in(const std::wstring& name = L"") const { return base::pathText(folder_ / "in" / "") + name; }
  void draw(const std::wstring& name, std::string_view bytes = kDrawing) const {
    make(fs::path("in") / base::pathFromText(name), bytes);
  }
  // What the sibling answers.
  void choose(const Names& names, const wchar_t* format = L"1") const {
    std::wstring lines = format + std::wstring(L"\n7\n") + base::pathText(folder_ / "in") + L"\n";
    for (const std::wstring& name : names) lines += name + L"\n";
    make("choice", base::toUtf8(lines));
  }
  FolderQuestion folderQuestion() const {
    return {L"変換後のﾌｧｲﾙを保存するﾌｫﾙﾀﾞを選択", base::pathText(folder_ / "in")};
  }
  // The button, and the folder of the results.
  void thenBegins() {
    then([this] {
      user_.choosesFolder(folderQuestion(), base::pathText(folder_ / "out"));
      user_.click(window(), IDC_MAIN_BATCH);
    });
  }
  // The dialog is back, and goes.
  void thenIsBack() {
    then([this] {
      EXPECT_TRUE(window().isShown());
      EXPECT_EQ(conversionContext().batchRemaining, 0);
      user_.click(window(), IDCANCEL);
    });
  }
  // Stopped when so many drawings are still to come.
  void begins(const Names& names, int left) {
    for (const std::wstring& name : names) draw(name);
    choose(names);
    thenBegins();
    host().setBreakQuery([left] { return conversionContext().batchRemaining == left; });
    type(L"KIV_TOACAD");
    host().setBreakQuery({});
  }
  void run(const Names& names) {
    choose(names);
    thenBegins();
    thenIsBack();
    type(L"KIV_TOACAD");
    EXPECT_EQ(conversionContext().dialog, nullptr);
  }

  // The newest report, less the line that names the product.
  std::wstring report() const {
    const std::size_t last = printed_.rfind(kStars);
    return last == printed_.npos ? L"" : printed_.substr(last + kStars.size());
  }
  std::wstring reportOf(const std::wstring& records, const std::wstring& end) const {
    return L"\nﾌｫﾙﾀﾞ:" + in() + L"\n[ﾌｧｲﾙ名] [結果]" + kLine + records + kLine + end;
  }
  void expectReport(const std::wstring& records, const std::wstring& end) const {
    const std::wstring wanted = reportOf(records, end);
    EXPECT_EQ(test::narrow(report().substr(0, wanted.size())), test::narrow(wanted));
  }
  // Drawings and their results, in the order of the log.
  void expectLog(const std::vector<std::pair<std::wstring, std::wstring>>& entries) const {
    std::wstring text = L"日時,ファイル名,結果\r\n";
    for (const auto& [name, result] : entries) {
      text += L"2026年11月14日 21:37:30," + in(name) + L"," + result + L"\r\n";
    }
    EXPECT_EQ(test::narrow(base::decode(content("logs/20261114_21h37m30sMorlux.log"), base::kJapanese).text),
              test::narrow(text));
  }
  Names results() const {
    Names names;
    for (const auto& each : fs::directory_iterator(folder_ / "out")) {
      if (each.is_regular_file()) names.push_back(base::pathText(each.path().filename()));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  const fs::path usualTemporaryFolder_ = fs::temp_directory_path();
  test::User user_;
  std::deque<std::function<void()>> acts_;
  std::wstring printed_;
};

std::string utf16(const std::wstring& text) {
  std::string bytes = "\xFF\xFE";
  for (const wchar_t character : text) {
    bytes += static_cast<char>(character & 0xFF);
    bytes += static_cast<char>(character >> 8);
  }
  return bytes;
}

TEST_F(Batch, ConvertsWhatIsADrawingAndReportsTheRest) {
  const Names names{L"a.dxf", L"図面 2.dxf", L"photo.jpg", L"protected.dxf", L"e.dxf"};
  for (const std::wstring& name : names) draw(name);
  const fs::path locked = folder_ / "in" / "protected.dxf";
  fs::permissions(locked, fs::perms::owner_read);
  const auto time = fs::last_write_time(locked);
  run(names);
  fs::permissions(locked, fs::perms::owner_all);

  EXPECT_EQ(results(), Names({L"a.DXF", L"e.DXF", L"protected.DXF", L"図面 2.DXF"}));
  for (const std::wstring& name : results())
    EXPECT_EQ(content(L"out" / base::pathFromText(name)), kConverted);
  for (const std::wstring& name : names) EXPECT_EQ(content(L"in" / base::pathFromText(name)), kDrawing);
  EXPECT_EQ(fs::last_write_time(locked), time);
  expectReport(L"\n[a.dxf]\n[図面 2.dxf]\n[photo.jpg] [NG]\n[protected.dxf]\n[e.dxf]",
               L"\n5件中1件 変換に失敗しました.");
  expectLog({{L"a.dxf", L" OK"}, {L"図面 2.dxf", L" OK"}, {L"protected.dxf", L" OK"}, {L"e.dxf", L" OK"}});
  EXPECT_EQ(conversionContext().savedChoice2, 7);
  EXPECT_EQ(host().documentCount(), 1U);
}

TEST_F(Batch, DrawingsThatFailDoNotStopTheOthersAndAreNamed) {
  draw(L"cut.dxf", kDrawing.substr(0, kDrawing.size() / 2));
  draw(L"blocked.dxf");
  fs::create_directories(folder_ / "out" / "blocked.DXF");
  draw(L"empty.dxf", kEmpty);
  draw(L"well.dxf");
  run({L"cut.dxf", L"gone.dxf", L"blocked.dxf", L"empty.dxf", L"gone too.dxf", L"well.dxf", L"last.dxf"});
  EXPECT_EQ(results(), Names{L"well.DXF"});
  expectReport(
      L"\n[cut.dxf] [NG]\n[gone.dxf] [NG]\n[blocked.dxf] [NG]\n[empty.dxf] [NG]\n[gone too.dxf] "
      L"[NG]\n[well.dxf]"
      L"\n[last.dxf] [NG]",
      L"\n7件中6件 変換に失敗しました.");
  const auto unread = [&](const wchar_t* name) {
    return std::pair(name, L"[" + in(name) + L"]の読み込みに失敗しました");
  };
  const std::wstring target = base::pathText(folder_ / "out" / "blocked.DXF");
  expectLog({unread(L"cut.dxf"),
             unread(L"gone.dxf"),
             {L"blocked.dxf", L"[" + target + L"]の保存に失敗しました"},
             unread(L"gone too.dxf"),
             {L"well.dxf", L" OK"},
             unread(L"last.dxf")});
  EXPECT_NE(printed_.find(L"\nKivｴﾗｰ:[" + in(L"last.dxf") + L"]の読み込みに失敗しました."), printed_.npos);
  EXPECT_EQ(host().documentCount(), 2U);  // the empty one stays open
}

TEST_F(Batch, TheDrawingOfTheStartMayBeAmongThemAndLosesNothing) {
  draw(L"a.dxf");
  draw(L"図面 2.dxf");
  ASSERT_TRUE(host().openDocument(in(L"a.dxf")).ok());
  const int number = host().currentDocument().number;
  ASSERT_TRUE(host().currentDrawing().setHeaderVariable("LTSCALE", 2.5).ok());
  run({L"図面 2.dxf", L"a.dxf"});
  EXPECT_TRUE(host().currentDocument().isModified);
  EXPECT_EQ(content("in/a.dxf"), kDrawing);
  EXPECT_EQ(content("out/a.DXF"), kConverted);
  EXPECT_EQ(results(), Names({L"a.DXF", L"図面 2.DXF"}));
  EXPECT_EQ(host().currentDocument().number, number);
  expectReport(L"\n[図面 2.dxf]\n[a.dxf]", L"\n2件変換しました.");
  EXPECT_EQ(content("tmp/DWGOPEN.SCR"),
            utf16(L"_.OPEN\r\n\"" + in(L"図面 2.dxf") + L"\"\r\nKIV_TOACAD2\r\n" + L"_.OPEN\r\n\"" +
                  in(L"a.dxf") + L"\"\r\nY\r\nKIV_TOACAD2\r\n"));
}

TEST_F(Batch, WithoutAFolderTheDialogStaysHiddenUntilTheCommand) {
  draw(L"a.dxf");
  choose({L"a.dxf"});
  then([this] {
    user_.cancelsFolder(folderQuestion());
    user_.click(window(), IDC_MAIN_BATCH);
  });
  type(L"KIV_TOACAD");
  EXPECT_FALSE(window().isShown());
  EXPECT_FALSE(fs::exists(folder_ / "tmp" / "DWGOPEN.SCR"));
  EXPECT_EQ(conversionContext().batchRemaining, 1);
  EXPECT_EQ(conversionContext().contextPaths[kOutputFolder], L"");
  EXPECT_EQ(report(), L"");
  thenIsBack();
  type(L"KIV_TOACAD");
  expectReport(L"\n[a.dxf]", L"\n1件変換しました.");
  EXPECT_EQ(printed_.find(L"中断"), printed_.npos);
}

TEST_F(Batch, AChoiceOfNothingShowsTheDialogAgain) {
  draw(L"photo.jpg");
  choose({});
  thenClicks(IDC_MAIN_BATCH);
  then([this] {
    EXPECT_TRUE(window().isShown());
    EXPECT_EQ(report(), L"");
    choose({L"photo.jpg"}, L"3");  // there is no such format
    user_.click(window(), IDC_MAIN_BATCH);
  });
  then([this] {
    EXPECT_NE(printed_.find(L"\nKivｴﾗｰ:KivFile.arxの"), printed_.npos);
    EXPECT_EQ(report(), L"");
    choose({L"photo.jpg"});
    user_.click(window(), IDC_MAIN_BATCH);
  });
  thenIsBack();
  type(L"KIV_TOACAD");
  EXPECT_NE(printed_.find(L"\nKivｴﾗｰ:[" + in(L"photo.jpg") + L"]の読み込みに失敗しました."), printed_.npos);
  expectReport(L"\n[photo.jpg] [NG]", L"\n1件中1件 変換に失敗しました.");
}

TEST_F(Batch, AStoppedBatchTellsWhatIsLeftOutAndIsGivenUpByTheCommand) {
  begins({L"a.dxf", L"b.dxf", L"c.dxf"}, 2);
  EXPECT_FALSE(window().isShown());
  EXPECT_EQ(report(), L"");
  type(L"OPEN \"nowhere.dxf\"");  // that this fails resumes nothing
  EXPECT_EQ(results(), Names{L"a.DXF"});
  thenIsBack();
  type(L"KIV_TOACAD");
  expectReport(L"\n[a.dxf]",
               L"\n1件変換しました.\n中断しました. 次の2件は変換していません.\n[b.dxf]\n[c.dxf]");
  type(L"RESUME");
  EXPECT_EQ(results(), Names{L"a.DXF"});
  EXPECT_EQ(conversionContext().dialog, nullptr);
}

TEST_F(Batch, WhatIsDoneByHandInAPauseIsNoPartOfIt) {
  begins({L"a.dxf", L"b.dxf", L"c.dxf", L"d.dxf"}, 3);
  type(L"KIV_TOACAD2");  // in the empty drawing of the start
  EXPECT_EQ(printed_.find(L"失敗"), printed_.npos);
  ASSERT_TRUE(host().openDocument(in(L"b.dxf")).ok());
  ASSERT_TRUE(host().currentDrawing().setHeaderVariable("LTSCALE", 2.5).ok());
  const int number = host().currentDocument().number;
  thenIsBack();
  type(L"RESUME");
  EXPECT_EQ(results(), Names({L"a.DXF", L"c.DXF", L"d.DXF"}));
  expectReport(L"\n[a.dxf]\n[b.dxf] [NG]\n[c.dxf]\n[d.dxf]", L"\n4件中1件 変換に失敗しました.");
  EXPECT_EQ(host().documentCount(), 2U);
  ASSERT_TRUE(host().openDocument(in(L"b.dxf")).ok());
  EXPECT_EQ(host().currentDocument().number, number);
  EXPECT_TRUE(host().currentDocument().isModified);
}

TEST_F(Batch, AnotherScriptTakesItsPlaceAndNoTurn) {
  begins({L"a.dxf", L"b.dxf"}, 1);
  draw(L"own.dxf");
  make("own.scr", base::toUtf8(L"_.OPEN\n\"" + in(L"own.dxf") + L"\"\nKIV_TOACAD2\n"));
  type((L"SCRIPT \"" + base::pathText(folder_ / "own.scr") + L"\"").c_str());
  EXPECT_EQ(results(), Names({L"a.DXF", L"own.DXF"}));
  EXPECT_EQ(printed_.find(L"失敗"), printed_.npos);
  thenIsBack();
  type(L"KIV_TOACAD");
  expectReport(L"\n[a.dxf]", L"\n1件変換しました.\n中断しました. 次の1件は変換していません.\n[b.dxf]");
}

TEST_F(Batch, NoResultTakesThePlaceOfAnotherOrOfADrawingUnasked) {
  const Names names{L"a.dxf", L"A.dxf", L"b\".dxf", L"c.dxf"};
  draw(names[0]);
  draw(names[3]);
  choose(names);
  then([this] {
    user_.choosesFolder(folderQuestion(), in());
    user_.answersMessage({L"変換元の図面に上書きされます. よろしいですか?", kModuleTitle, Buttons::kYesNo,
                          Icon::kQuestion, true},
                         Answer::kNo);
    user_.choosesFolder(folderQuestion(), base::pathText(folder_ / "out"));
    user_.click(window(), IDC_MAIN_BATCH);
  });
  thenIsBack();
  type(L"KIV_TOACAD");
  EXPECT_EQ(results(), Names({L"a.DXF", L"c.DXF"}));
  EXPECT_EQ(content("in/a.dxf"), kDrawing);
  expectReport(L"\n[a.dxf]\n[A.dxf] [NG]\n[b\".dxf] [NG]\n[c.dxf]", L"\n4件中2件 変換に失敗しました.");
  for (const std::wstring& reason :
       {L"[a.dxf]の変換結果と同じ名前(A.DXF)になるため変換できません: " + in(L"A.dxf"),
        L"ﾌｧｲﾙ名に使用できない文字があるため変換できません: " + in(L"b\".dxf")})
    EXPECT_NE(printed_.find(L"\nKivｴﾗｰ:" + reason), printed_.npos);
}

TEST_F(Batch, EachDrawingKeepsItsFormat) {
  const std::string dwg = cad::dwg::bytesOf(cad::dwg::wholeDrawing(base::Version::kR2004));
  draw(L"a.dxf");
  draw(L"b.dwg", dwg);
  draw(L"c.dwt", dwg);
  draw(L"d.dwg");
  draw(L"e.dxf", dwg);
  choose({L"a.dxf", L"b.dwg", L"c.dwt", L"d.dwg", L"e.dxf"}, L"0");
  thenBegins();
  thenIsBack();
  type(L"KIV_TOACAD");
  EXPECT_EQ(results(), Names({L"a.DXF", L"b.DWG", L"c.DWG", L"d.DXF", L"e.DWG"}));
  EXPECT_EQ(content("out/a.DXF"), kConverted);
  EXPECT_EQ(content("out/b.DWG"), content("out/c.DWG"));
  EXPECT_EQ(content("out/b.DWG"), content("out/e.DWG"));
  EXPECT_EQ(content("out/d.DXF"), kConverted);
  EXPECT_NE(content("out/b.DWG"), dwg);
  EXPECT_NE(printed_.find(L"このﾎｽﾄは図面の形式を変えないため, DXF形式で保存します."), printed_.npos);
  expectReport(L"\n[a.dxf]\n[b.dwg]\n[c.dwt]\n[d.dwg]\n[e.dxf]", L"\n5件変換しました.");
}

TEST_F(Batch, TheSystemsChooserServesWhereTheSettingsSaySo) {
  writeCommonText(L"KivFileMode", L"0");
  draw(L"a.dxf");
  then([this] {
    user_.choosesFiles({L"ﾌｧｲﾙを選択", {{L"図面 (*.dwg)", L"*.dwg"}, {L"すべてのﾌｧｲﾙ(*.*)", L"*.*"}}},
                       {in(L"a.dxf")});
    user_.choosesFolder(folderQuestion(), base::pathText(folder_ / "out"));
    user_.click(window(), IDC_MAIN_BATCH);
  });
  thenIsBack();
  type(L"KIV_TOACAD");
  EXPECT_NE(printed_.find(L"DXF形式で保存します."), printed_.npos);
  EXPECT_EQ(results(), Names{L"a.DXF"});
  expectReport(L"\n[a.dxf]", L"\n1件変換しました.");
}

TEST(BatchScript, APathThatWouldBeReadBackAsAnotherIsRefused) {
  EXPECT_TRUE(canStandInScript(L"C:\\図 面;1\\a'b.dwg"));
  for (const wchar_t* path : {L"/in/a\".dxf", L"/in/a\n.dxf", L"/in/a\r.dxf"})
    EXPECT_FALSE(canStandInScript(path));
}

#if defined(__linux__)

struct Footprint {
  long pages = 0;
  std::ptrdiff_t files = 0;
};

Footprint footprint() {
  Footprint now;
  std::ifstream statm("/proc/self/statm");
  statm >> now.pages >> now.pages;  // the second is what is resident
  now.files = std::distance(fs::directory_iterator("/proc/self/fd"), {});
  return now;
}

TEST_F(Batch, HundredsOfDrawingsLeaveNothingBehind) {
  constexpr int kCount = 300, kWarm = 250;
  Names names;
  for (int i = 0; i < kCount; ++i) {
    names.push_back(std::to_wstring(i) + L".dxf");
    draw(names.back());
  }
  Footprint first, last;
  host().setBreakQuery([&] {
    const auto remaining = conversionContext().batchRemaining;
    if (remaining == kWarm) first = footprint();
    if (remaining > 0) last = footprint();
    return false;
  });
  run(names);
  EXPECT_EQ(results().size(), static_cast<std::size_t>(kCount));
  EXPECT_EQ(last.files, first.files);
#if !defined(__SANITIZE_ADDRESS__)  // which keeps what is freed
  EXPECT_LE(last.pages, first.pages + first.pages / 20);
#endif
}

#endif

}  // namespace
}  // namespace kiv::testing
