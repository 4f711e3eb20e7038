// The dialog's files and its run buttons.

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

TEST_F(MainDialog, AFileThatCannotBeWrittenKeepsTheDialogOpen) {
  std::wstring printed;
  cad::Host::instance().setOutput([&](std::wstring_view text) { printed += text; });
  open();
  std::filesystem::remove_all(folder_ / "CFG");
  click(IDOK);
  cad::Host::instance().setOutput({});
  EXPECT_TRUE(window().isShown());
  EXPECT_NE(printed.find(L"ファイルの作成に失敗しました"), std::wstring::npos);
}

TEST_F(MainDialog, CancelLeavesTheFilesAsTheyWere) {
  makeConfig(L"SAMPLE.CVT", kSampleText);
  open();
  load(L"SAMPLE.CVT");
  chooseFromMenu({L"文字"}, IDC_ADD_SETTING);
  click(IDC_MAIN_DEFAULT);
  user_.close(window());
  EXPECT_FALSE(dialog().hasWindow());
  EXPECT_FALSE(place_.isEmpty());
  EXPECT_FALSE(exists(kInitial));
  EXPECT_FALSE(exists(kWorkFileName));
}

}  // namespace
}  // namespace kiv::testing
