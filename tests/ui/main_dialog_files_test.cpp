// The dialog's files and its run buttons.

#include <functional>

#include "base/paths.h"
#include "embedded/editor/host.h"
#include "spec/cvt_writer.h"
#include "tests/spec/sample_specification.h"
#include "tests/ui/main_dialog_fixture.h"

namespace kiv::testing {
namespace {

constexpr const wchar_t* kInitial = L"KivCvtInit.dat";

TEST_F(MainDialog, DefaultSpecificationIsLoadedAndStaysTheDefault) {
  makeConfig(L"SAMPLE.CVT", kSampleText);
  makeConfig(kInitial, L"SAMPLE.CVT  \r\n");
  open();
  EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), L"SAMPLE.CVT");
  EXPECT_EQ(window().text(IDC_MAIN_REMARK), L"sample");
  EXPECT_TRUE(window().isEnabled(IDC_MAIN_DEFAULT));
  EXPECT_TRUE(window().isChecked(IDC_MAIN_DEFAULT));
  click(IDOK);
  EXPECT_EQ(bytes(kInitial), "SAMPLE.CVT\r\n");
  dialog().reopen();
  click(IDC_MAIN_DEFAULT);
  click(IDOK);
  EXPECT_EQ(bytes(kInitial), "Unnamed\r\n");
}

TEST_F(MainDialog, WithoutADefaultTheDialogIsEmpty) {
  makeConfig(kInitial, L"Unnamed\r\n");
  open();
  EXPECT_FALSE(window().isEnabled(IDC_MAIN_DEFAULT));
  EXPECT_FALSE(window().isChecked(IDC_MAIN_DEFAULT));
  EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), L"");
  EXPECT_EQ(rows({}).size(), 10U);
}

TEST_F(MainDialog, LoadingAndSavingGivesTheSameFile) {
  std::wstring text = kSampleText;
  text.replace(text.find(L"A-TEXT"), 6, L"a-Text");
  makeConfig(L"SAMPLE.CVT", kSampleText);
  makeConfig(L"mixed.cvt", text);
  open();
  for (const wchar_t* name : {L"SAMPLE.CVT", L"mixed.cvt"}) {
    load(name);
    EXPECT_TRUE(window().isEnabled(IDC_MAIN_DEFAULT));
    EXPECT_FALSE(window().isChecked(IDC_MAIN_DEFAULT));
    save(name == std::wstring(L"mixed.cvt") ? L"b" : L"a", L"sample");
  }
  EXPECT_EQ(bytes(L"a.cvt"), bytes(L"SAMPLE.CVT"));
  EXPECT_EQ(bytes(L"b.cvt"), bytes(L"SAMPLE.CVT"));
}

TEST_F(MainDialog, SavingShowsTheNameAndWritesTheInitialFileEvenWhenCancelled) {
  makeConfig(L"SAMPLE.CVT", kSampleText);
  open();
  load(L"SAMPLE.CVT");
  user_.inDialog(IDD_SAVE, [this](DialogWindow& browser) {
    EXPECT_EQ(browser.text(IDC_SAVE_NAME), L"SAMPLE.CVT");
    EXPECT_EQ(browser.text(IDC_SAVE_REMARK), L"sample");
    EXPECT_TRUE(browser.isEnabled(IDOK));
    user_.type(browser, IDC_SAVE_NAME, L"other");
    user_.click(browser, IDCANCEL);
  });
  click(IDC_MAIN_SAVE);
  EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), L"SAMPLE.CVT");
  EXPECT_FALSE(exists(L"other.cvt"));
  EXPECT_EQ(bytes(kInitial), "Unnamed\r\n");

  click(IDC_MAIN_DEFAULT);
  save(L"OTHER", L"R");
  EXPECT_EQ(bytes(kInitial), "OTHER.cvt\r\n");
}

TEST_F(MainDialog, ALayerSettingWithoutALayerIsNotWritten) {
  open();
  chooseFromMenu({L"画層の設定"}, IDC_ADD_SETTING);
  chooseFromMenu({L"画層の設定"}, IDC_ADD_SETTING);
  give({L"画層の設定", L"設定1"}, 40021, L"0");
  user_.inDialog(IDD_SAVE, [this](DialogWindow& browser) {
    user_.type(browser, IDC_SAVE_NAME, L"bad");
    user_.click(browser, IDOK);
  });
  user_.answersMessage(told(kLayerMissingMessage), Answer::kOk);
  click(IDC_MAIN_SAVE);
  EXPECT_EQ(selectedText(), L"設定2");
  EXPECT_FALSE(exists(L"bad.cvt"));
  user_.answersMessage(told(kLayerMissingMessage), Answer::kOk);
  click(IDC_MAIN_BATCH);
  EXPECT_TRUE(window().isShown());
  EXPECT_EQ(dialog().closing(), Closing::kCancelled);
  EXPECT_FALSE(exists(kWorkFileName));
}

TEST_F(MainDialog, RunButtonsWriteTheWorkFileAndHideTheDialog) {
  makeConfig(L"SAMPLE.CVT", kSampleText);
  open();
  load(L"SAMPLE.CVT");
  const std::string saved = bytes(L"SAMPLE.CVT");
  const Rect moved{40, 50, 640, 650};
  window().setPlace(moved);
  click(IDC_MAIN_BATCH);
  EXPECT_TRUE(dialog().hasWindow());
  EXPECT_FALSE(window().isShown());
  EXPECT_EQ(dialog().closing(), Closing::kBatch);
  EXPECT_EQ(place_, moved);
  Specification work = sampleSpecification();
  work.remark = kWorkFileRemark;
  ASSERT_TRUE(writeSpecification(work, folder_ / "work.cvt").ok());
  EXPECT_EQ(bytes(kWorkFileName), content("work.cvt"));
  EXPECT_EQ(bytes(L"SAMPLE.CVT"), saved);
  EXPECT_EQ(window().text(IDC_MAIN_REMARK), L"sample");

  dialog().reopen();
  EXPECT_EQ(dialog().closing(), Closing::kCancelled);
  click(IDOK);
  EXPECT_EQ(dialog().closing(), Closing::kConvert);
  open();
  EXPECT_EQ(window().place(), moved);
}

TEST_F(MainDialog, AFileThatCannotBeWrittenIsToldAndKeepsTheDialogOpen) {
  const auto refused = [this](const std::wstring& name, const wchar_t* reason) {
    return told(L"ファイルの作成に失敗しました\n\n" + dialog().specificationFolder() + name + L"\n" + reason);
  };
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  std::filesystem::create_directory(config(L"taken.cvt"));
  open();
  user_.inDialog(IDD_SAVE, [&, this](DialogWindow& browser) {
    user_.type(browser, IDC_SAVE_NAME, L"taken");
    user_.answersMessage(refused(L"taken.cvt", L"ファイルではなくフォルダです"), Answer::kOk);
    user_.click(browser, IDOK);
    EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), L"");
    user_.type(browser, IDC_SAVE_NAME, L"plan");
    user_.type(browser, IDC_SAVE_REMARK, L"한");
    user_.answersMessage(refused(L"plan.cvt", L"保存できない文字があります: 한"), Answer::kOk);
    user_.click(browser, IDOK);
    user_.type(browser, IDC_SAVE_REMARK, L"r");
    user_.click(browser, IDOK);
  });
  click(IDC_MAIN_SAVE);
  EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), L"plan.cvt");
  EXPECT_TRUE(exists(L"plan.cvt"));
  std::filesystem::remove_all(folder_ / "CFG");
  user_.answersMessage(refused(kWorkFileName, L"フォルダがありません"), Answer::kOk);
  click(IDOK);
  cad::Host::instance().setOutput({});
  EXPECT_TRUE(window().isShown());
  for (const std::wstring name : {L"taken.cvt", L"plan.cvt", kWorkFileName})
    EXPECT_NE(printed.find(name + L"ファイルの作成に失敗しました"), std::wstring::npos) << test::narrow(name);
}

TEST_F(MainDialog, AFirstStartHasTheSamplesALaterOneWhatIsThere) {
  std::filesystem::remove(folder_ / "CFG");
  std::filesystem::create_directory(folder_ / "samples");
  make("samples/office.cvt", "1");
  make("samples/ROOMS.LIST", "2");
  open();
  EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"office.cvt", "1"}, {L"ROOMS.LIST", "2"}}));
  std::filesystem::remove(config(L"office.cvt"));
  dialog_.reset();
  open();
  EXPECT_EQ(files(), (std::map<std::wstring, std::string>{{L"ROOMS.LIST", "2"}}));
}

TEST_F(MainDialog, AConfigurationFolderThatCannotBeMadeIsTold) {
  std::filesystem::remove(folder_ / "CFG");
  make("CFG", "a file");
  user_.answersMessage(
      told(L"フォルダの作成に失敗しました\n\n" + base::folderInSystemCase(base::pathText(folder_ / "CFG")) +
           L"\n同じ名前のファイルがあります"),
      Answer::kOk);
  open();
  user_.sawEverything();
  EXPECT_TRUE(window().isShown());
}

TEST_F(MainDialog, ASpecificationWithoutRulesIsWhatItIs) {
  const std::wstring empty = L"[備考]\r\n下書き\r\n[文字]\r\n---End---\r\n[EOF]\r\n";
  makeConfig(L"EMPTY.CVT", empty);
  makeConfig(L"REMARK.CVT", L"[備考]\r\n下書き\r\n[EOF]\r\n");
  for (const wchar_t* name : {L"EMPTY.CVT", L"REMARK.CVT"}) {
    const bool isSpecification = name == std::wstring(L"EMPTY.CVT");
    makeConfig(kInitial, name);
    open();
    EXPECT_EQ(window().text(IDC_MAIN_FILE_NAME), name);
    EXPECT_EQ(window().text(IDC_MAIN_REMARK), L"下書き");
    EXPECT_EQ(window().isChecked(IDC_MAIN_DEFAULT), isSpecification);
    EXPECT_EQ(window().isEnabled(IDC_MAIN_DEFAULT), isSpecification);
    load(L"EMPTY.CVT");
    EXPECT_TRUE(window().isEnabled(IDC_MAIN_DEFAULT));
    EXPECT_EQ(window().isChecked(IDC_MAIN_DEFAULT), isSpecification);
    click(IDOK);
    EXPECT_EQ(bytes(kInitial), isSpecification ? "EMPTY.CVT\r\n" : "Unnamed\r\n");
  }
}

TEST_F(MainDialog, CancelLeavesFilesAsTheyWere) {
  makeConfig(L"SAMPLE.CVT", kSampleText);
  makeConfig(kInitial, L"SAMPLE.CVT\r\n");
  const auto before = files();
  const std::function<void()> ways[] = {[this] { click(IDCANCEL); }, [this] { user_.close(window()); },
                                        [this] { user_.press(window(), Key::kEscape); }};
  for (const auto& leave : ways) {
    open();
    chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
    give({L"文字", L"設定3"}, 40021, L"NEW");
    user_.answersMessage(asked(L"[設定1] に含まれる項目をすべて削除します."), Answer::kYes);
    select({L"文字", L"設定1"});
    click(IDC_MAIN_DELETE);
    for (const int id : {IDC_MAIN_DEFAULT, IDC_MAIN_CREATE_LOG}) click(id);
    user_.type(window(), IDC_MAIN_LOG_FOLDER, base::pathText(folder_ / "logs"));
    leave();
    EXPECT_FALSE(dialog().hasWindow());
    EXPECT_EQ(dialog().closing(), Closing::kCancelled);
    EXPECT_FALSE(place_.isEmpty());
    EXPECT_EQ(files(), before);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "logs"));
  }
}

}  // namespace
}  // namespace kiv::testing
