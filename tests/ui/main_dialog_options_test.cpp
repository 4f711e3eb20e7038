// The options of a conversion.

#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "platform/settings.h"
#include "tests/ui/main_dialog_fixture.h"

namespace kiv::testing {
namespace {

std::wstring setting(const wchar_t* key) { return readCommonText(key, L"-"); }

FolderQuestion logFolder(const std::wstring& start) {
  return {L"ログの書き出し先フォルダを選択してください", start, true};
}

TEST_F(MainDialog, BlockScopeIsClampedAndWrittenBackAtOnce) {
  const struct {
    const wchar_t* stored;
    int button;
    const wchar_t* written;
  } cases[] = {{L"7", IDC_MAIN_BLOCK_BOTH, L"2"},
               {L"-1", IDC_MAIN_BLOCK_SURFACE, L"0"},
               {L"1", IDC_MAIN_BLOCK_INSIDE, L"1"}};
  for (const auto& each : cases) {
    overrideCommonSetting(L"KivBlock", each.stored);
    open();
    EXPECT_EQ(setting(L"KivBlock"), each.written);
    for (const int button : {IDC_MAIN_BLOCK_SURFACE, IDC_MAIN_BLOCK_INSIDE, IDC_MAIN_BLOCK_BOTH}) {
      EXPECT_EQ(window().isChecked(button), button == each.button);
    }
  }
}

TEST_F(MainDialog, OptionsAreThoseOfTheControlsWhenItIsClosed) {
  overrideCommonSetting(L"MorluxIgnoreLocks", L"1");
  open();
  EXPECT_TRUE(window().isChecked(IDC_MAIN_IGNORE_LOCKS));
  EXPECT_FALSE(window().isEnabled(IDC_MAIN_LOG_FOLDER));
  user_.cannotClick(window(), IDC_MAIN_LOG_BROWSE);
  click(IDC_MAIN_IGNORE_LOCKS);
  click(IDC_MAIN_CREATE_LOG);
  click(IDC_MAIN_BLOCK_INSIDE);
  const std::wstring deep = base::pathText(folder_ / "logs" / "new" / "deep");
  user_.choosesFolder(logFolder(L""), base::pathText(folder_));
  click(IDC_MAIN_LOG_BROWSE);
  EXPECT_EQ(window().text(IDC_MAIN_LOG_FOLDER), base::pathText(folder_));
  user_.type(window(), IDC_MAIN_LOG_FOLDER, deep);
  click(IDOK);
  EXPECT_TRUE(std::filesystem::is_directory(folder_ / "logs" / "new" / "deep"));
  const ConversionOptions& options = dialog().options();
  EXPECT_EQ(options.blockScope, 1);
  EXPECT_FALSE(options.ignoreLocks);
  EXPECT_TRUE(options.createLog);
  EXPECT_EQ(options.logFolder, deep);
  // Storing them is the command's part.
  EXPECT_EQ(setting(L"MorluxIgnoreLocks"), L"1");
  EXPECT_EQ(setting(L"MorluxLogOutPath"), L"");
}

TEST_F(MainDialog, ALogNeedsAFolder) {
  overrideCommonSetting(L"MorluxCreateLog", L"1");
  overrideCommonSetting(L"MorluxLogOutPath", L"somewhere");
  make("file", "");
  open();
  EXPECT_EQ(window().text(IDC_MAIN_LOG_FOLDER), L"somewhere");
  // Leaving the browser takes the folder back.
  user_.cancelsFolder(logFolder(L"somewhere"));
  click(IDC_MAIN_LOG_BROWSE);
  EXPECT_EQ(window().text(IDC_MAIN_LOG_FOLDER), L"");
  const MessageQuestion wrong = told(L"ログの書き出し先が間違っています");
  user_.answersMessage(wrong, Answer::kOk);
  click(IDOK);
  user_.type(window(), IDC_MAIN_LOG_FOLDER, base::pathText(folder_ / "file" / "below"));
  user_.answersMessage(wrong, Answer::kOk);
  click(IDC_MAIN_BATCH);
  EXPECT_TRUE(window().isShown());
  EXPECT_EQ(window().focused(), IDC_MAIN_LOG_FOLDER);
  EXPECT_FALSE(exists(kWorkFileName));
  click(IDC_MAIN_CREATE_LOG);
  click(IDOK);
  EXPECT_FALSE(window().isShown());
}

TEST_F(MainDialog, ASingleDocumentHostHasNoBatch) {
  resbuf one{};
  one.restype = RTSHORT;
  one.resval.rint = 1;
  ASSERT_EQ(acedSetVar(L"SDI", &one), RTNORM);
  open();
  user_.cannotClick(window(), IDC_MAIN_BATCH);
  click(IDOK);
}

TEST_F(MainDialog, TheTextListDialogKeepsThisOneFromInput) {
  open();
  user_.inDialog(IDD_TEXT_LIST, [this](DialogWindow& modal) {
    user_.cannotClick(window(), IDCANCEL);
    user_.click(modal, IDOK);
  });
  click(IDC_MAIN_TEXT_LIST);
  click(IDC_MAIN_IGNORE_LOCKS);
}

}  // namespace
}  // namespace kiv::testing
