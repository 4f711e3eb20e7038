#include "ui/file_browser.h"

#include "base/paths.h"
#include "embedded/editor/host.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv {
namespace {

using Names = std::vector<std::wstring>;

MessageQuestion asked(const std::wstring& text) {
  return {text, L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ", Buttons::kYesNo, Icon::kQuestion, true};
}

class FileBrowserDialogs : public test_support::TempFolder {
 protected:
  void SetUp() override {
    cad::Host::instance().start();
    makeText("A.cvt", L"[備考]\r\n平面図\r\n");
    makeText("b.CVT", L"[備考]\r\n断面図\r\n");
    make("short.cvt", "one line");
  }
  void TearDown() override { cad::Host::instance().stop(); }

  std::wstring folderText() const { return base::ensureTrailingSeparator(base::pathText(folder_)); }
  static Names names(DialogWindow& browser, int list) {
    Names names;
    for (int row = 0; row < browser.list(list).rowCount(); ++row) {
      names.push_back(browser.list(list).cell(row, 0));
    }
    return names;
  }
  void clickName(DialogWindow& browser, int list, const std::wstring& name) {
    const Names all = names(browser, list);
    user_.clickRow(browser, list, static_cast<int>(std::find(all.begin(), all.end(), name) - all.begin()));
  }

  int use(Dialog& dialog, test::User::Hands hands) {
    user_.inDialog(dialog.resource(), std::move(hands));
    return dialog.runModal(nullptr);
  }

  test::User user_;
};

TEST_F(FileBrowserDialogs, TheChosenFileIsLoadedWithItsRemark) {
  CReadDlg dialog(folderText());
  const int result = use(dialog, [this](DialogWindow& browser) {
    EXPECT_FALSE(browser.isEnabled(IDOK));
    user_.cannotClick(browser, IDOK);
    user_.press(browser, Key::kEnter);
    EXPECT_TRUE(browser.isShown());
    clickName(browser, IDC_LOAD_LIST, L"short.cvt");
    EXPECT_EQ(browser.text(IDC_LOAD_REMARK), L"");
    clickName(browser, IDC_LOAD_LIST, L"b.CVT");
    EXPECT_EQ(browser.text(IDC_LOAD_NAME), L"b.CVT");
    EXPECT_EQ(browser.text(IDC_LOAD_REMARK), L"断面図");
    EXPECT_FALSE(user::type(browser, IDC_LOAD_NAME, L"other"));
    user_.click(browser, IDOK);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog.name(), L"b.CVT");
  EXPECT_EQ(dialog.remark(), L"断面図");
}

TEST_F(FileBrowserDialogs, ADoubleClickLoads) {
  CReadDlg dialog(folderText());
  Names listed;
  const int result = use(dialog, [&, this](DialogWindow& browser) {
    listed = names(browser, IDC_LOAD_LIST);
    user_.doubleClickRow(browser, IDC_LOAD_LIST, 1);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog.name(), listed[1]);
}

TEST_F(FileBrowserDialogs, CancelChoosesNothing) {
  CReadDlg dialog(folderText());
  const int result = use(dialog, [this](DialogWindow& browser) {
    clickName(browser, IDC_LOAD_LIST, L"A.cvt");
    user_.press(browser, Key::kEscape);
  });
  EXPECT_EQ(result, IDCANCEL);
  EXPECT_EQ(dialog.name(), L"");
}

TEST_F(FileBrowserDialogs, AnyHeaderSortsByNameTheLastFirst) {
  CReadDlg dialog(folderText());
  use(dialog, [this](DialogWindow& browser) {
    clickName(browser, IDC_LOAD_LIST, L"b.CVT");
    user_.clickHeader(browser, IDC_LOAD_LIST, 1);
    EXPECT_EQ(names(browser, IDC_LOAD_LIST), (Names{L"short.cvt", L"b.CVT", L"A.cvt"}));
    EXPECT_EQ(browser.list(IDC_LOAD_LIST).selected(), 1);
    user_.clickHeader(browser, IDC_LOAD_LIST, 1);
    EXPECT_EQ(names(browser, IDC_LOAD_LIST), (Names{L"A.cvt", L"b.CVT", L"short.cvt"}));
    user_.clickHeader(browser, IDC_LOAD_LIST, 0);
    EXPECT_EQ(names(browser, IDC_LOAD_LIST), (Names{L"short.cvt", L"b.CVT", L"A.cvt"}));
    EXPECT_EQ(browser.list(IDC_LOAD_LIST).cell(2, 1), L"平面図");
    user_.clickRow(browser, IDC_LOAD_LIST, 0);
    EXPECT_EQ(browser.text(IDC_LOAD_NAME), L"short.cvt");
    user_.click(browser, IDCANCEL);
  });
}

TEST_F(FileBrowserDialogs, TheDeleteKeyAsksAndDeletes) {
  CReadDlg dialog(folderText());
  use(dialog, [this](DialogWindow& browser) {
    browser.focus(IDC_LOAD_LIST);
    user_.press(browser, Key::kDelete);
    clickName(browser, IDC_LOAD_LIST, L"A.cvt");
    user_.answersMessage(asked(L"削除してよろしいですか？"), Answer::kNo);
    user_.press(browser, Key::kDelete);
    EXPECT_EQ(browser.list(IDC_LOAD_LIST).rowCount(), 3);
    EXPECT_EQ(browser.text(IDC_LOAD_NAME), L"A.cvt");
    user_.answersMessage(asked(L"削除してよろしいですか？"), Answer::kYes);
    user_.press(browser, Key::kDelete);
    Names left = names(browser, IDC_LOAD_LIST);
    std::sort(left.begin(), left.end());
    EXPECT_EQ(left, (Names{L"b.CVT", L"short.cvt"}));
    EXPECT_EQ(browser.text(IDC_LOAD_NAME) + browser.text(IDC_LOAD_REMARK), L"");
    EXPECT_FALSE(browser.isEnabled(IDOK));
    user_.close(browser);
  });
  EXPECT_FALSE(std::filesystem::exists(folder_ / "A.cvt"));
}

TEST_F(FileBrowserDialogs, TheFileThatTheFieldNamesIsDeletedNotTheSelectedOne) {
  CSaveDlg dialog(folderText());
  use(dialog, [this](DialogWindow& browser) {
    clickName(browser, IDC_SAVE_LIST, L"A.cvt");
    user_.type(browser, IDC_SAVE_NAME, L"short.cvt");
    browser.focus(IDC_SAVE_LIST);
    user_.answersMessage(asked(L"削除してよろしいですか？"), Answer::kYes);
    user_.press(browser, Key::kDelete);
    EXPECT_EQ(browser.text(IDC_SAVE_NAME) + browser.text(IDC_SAVE_REMARK), L"");
    user_.cannotClick(browser, IDOK);
    user_.close(browser);
  });
  EXPECT_TRUE(std::filesystem::exists(folder_ / "A.cvt"));
  EXPECT_FALSE(std::filesystem::exists(folder_ / "short.cvt"));
}

TEST_F(FileBrowserDialogs, ARefusedDeletionIsToldAndAVanishedFileIsNot) {
  std::filesystem::create_directory(folder_ / "taken.cvt");
  CSaveDlg dialog(folderText());
  use(dialog, [this](DialogWindow& browser) {
    user_.type(browser, IDC_SAVE_NAME, L"taken.cvt");
    browser.focus(IDC_SAVE_LIST);
    user_.answersMessage(asked(L"削除してよろしいですか？"), Answer::kYes);
    user_.answersMessage(
        {L"ファイルの削除に失敗しました\n\n" + folderText() + L"taken.cvt\nファイルではなくフォルダです",
         L"ﾌｧｲﾙ変換ﾕｰﾃｨﾘﾃｨ", Buttons::kOk, Icon::kWarning},
        Answer::kOk);
    user_.press(browser, Key::kDelete);
    EXPECT_EQ(browser.text(IDC_SAVE_NAME), L"taken.cvt");
    clickName(browser, IDC_SAVE_LIST, L"A.cvt");
    std::filesystem::remove(folder_ / "A.cvt");
    user_.answersMessage(asked(L"削除してよろしいですか？"), Answer::kYes);
    user_.press(browser, Key::kDelete);
    EXPECT_EQ(browser.list(IDC_SAVE_LIST).rowCount(), 2);
    user_.close(browser);
  });
  EXPECT_TRUE(std::filesystem::exists(folder_ / "taken.cvt"));
}

TEST_F(FileBrowserDialogs, ANameIsNeededToSave) {
  CSaveDlg dialog(folderText());
  const int result = use(dialog, [this](DialogWindow& browser) {
    user_.cannotClick(browser, IDOK);
    user_.type(browser, IDC_SAVE_NAME, L"x");
    EXPECT_TRUE(browser.isEnabled(IDOK));
    // A key in the name is for the name.
    user_.press(browser, Key::kDelete);
    user_.type(browser, IDC_SAVE_NAME, L"");
    EXPECT_FALSE(browser.isEnabled(IDOK));
    clickName(browser, IDC_SAVE_LIST, L"b.CVT");
    EXPECT_EQ(browser.text(IDC_SAVE_REMARK), L"断面図");
    EXPECT_TRUE(browser.isEnabled(IDOK));
    user_.type(browser, IDC_SAVE_NAME, L"plan");
    user_.type(browser, IDC_SAVE_REMARK, L"新");
    user_.click(browser, IDOK);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog.name(), L"plan.cvt");
  EXPECT_EQ(dialog.remark(), L"新");
  EXPECT_FALSE(std::filesystem::exists(folder_ / "plan.cvt"));
}

TEST_F(FileBrowserDialogs, AnExistingFileIsOverwrittenOnlyWhenAgreed) {
  CSaveDlg dialog(folderText());
  const int result = use(dialog, [this](DialogWindow& browser) {
    user_.type(browser, IDC_SAVE_NAME, L"A");
    user_.answersMessage(asked(L"上書きしてよろしいですか？"), Answer::kNo);
    user_.click(browser, IDOK);
    EXPECT_TRUE(browser.isShown());
    EXPECT_EQ(browser.text(IDC_SAVE_NAME), L"A.cvt");
    user_.answersMessage(asked(L"上書きしてよろしいですか？"), Answer::kYes);
    user_.click(browser, IDOK);
  });
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(dialog.name(), L"A.cvt");
}

}  // namespace
}  // namespace kiv
