// What only windows in memory do: give up, and go without an answer.

#include "platform/headless/desktop.h"

#include <gtest/gtest.h>

#include "platform/dialog_script.h"
#include "platform/user_input.h"

namespace kiv::headless {
namespace {

constexpr int kMainDialog = 102;

class Silent : public DialogScript {
 public:
  Silent() { setDialogScript(this); }
  ~Silent() override { setDialogScript(nullptr); }
  Answer answer(const MessageQuestion&) override { return messageAnswer; }
  std::optional<std::wstring> answer(const FileQuestion&) override { return file; }
  std::vector<std::wstring> answer(const FilesQuestion&) override { return {}; }
  std::optional<std::wstring> answer(const FolderQuestion&) override { return {}; }
  int answer(const Menu&) override { return menu; }
  void act(DialogWindow&) override { ++acts; }

  Answer messageAnswer = Answer::kYes;
  std::optional<std::wstring> file;
  int menu = 0;
  int acts = 0;
};

TEST(Headless, ModalDialogThatNobodyEndsIsGivenUp) {
  Silent script;
  Dialog modal(kMainDialog);
  ::testing::internal::CaptureStderr();
  EXPECT_EQ(modal.runModal(nullptr), Dialog::kNotShown);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Dialog 102 is given up: nobody ends it.\n");
  EXPECT_GT(script.acts, 1000);
  EXPECT_FALSE(modal.hasWindow());
}

TEST(Headless, AnswersWithoutAnybody) {
  EXPECT_EQ(showMessage(nullptr, {L"?", L"", Buttons::kYesNo}), Answer::kNo);
  EXPECT_EQ(showMessage(nullptr, {L"!", L""}), Answer::kOk);
  EXPECT_EQ(chooseFile(nullptr, {}), std::nullopt);
  EXPECT_EQ(chooseFolder(nullptr, {}), std::nullopt);
  EXPECT_FALSE(canShowDialogs());
}

TEST(Headless, AnswersThatWereNotOffered) {
  Silent script;
  EXPECT_EQ(showMessage(nullptr, {L"!", L""}), Answer::kOk);  // answered with yes
  script.file = L"/nowhere/at/all.LIST";
  FileQuestion question;
  EXPECT_EQ(chooseFile(nullptr, question), std::nullopt);
  question.mustExist = false;
  EXPECT_EQ(chooseFile(nullptr, question), script.file);

  Dialog dialog(kMainDialog);
  ASSERT_TRUE(dialog.create(nullptr));
  Menu menu = loadMenu(123);
  script.menu = 40021;
  EXPECT_EQ(showMenu(dialog.window(), menu, {}), 40021);
  menu[0].items[0].enabled = false;  // the sub-menu does not open
  EXPECT_EQ(showMenu(dialog.window(), menu, {}), 0);
  script.menu = 77;
  EXPECT_EQ(showMenu(dialog.window(), menu, {}), 0);
}

}  // namespace
}  // namespace kiv::headless
