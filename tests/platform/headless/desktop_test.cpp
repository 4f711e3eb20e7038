// What only windows in memory do: give up, go without an answer, and stay apart from each other's handlers.

#include "platform/headless/desktop.h"

#include <gtest/gtest.h>

#include "platform/dialog_script.h"
#include "platform/user_input.h"

namespace kiv::headless {
namespace {

constexpr int kMainDialog = 102;
constexpr int kValueDialog = 103;
constexpr int kEditButton = 1021;

class Silent : public DialogScript {
 public:
  Silent() { setDialogScript(this); }
  ~Silent() override { setDialogScript(nullptr); }
  Answer answer(const MessageQuestion&) override { return messageAnswer; }
  std::optional<std::wstring> answer(const FileQuestion&) override { return file; }
  std::optional<std::wstring> answer(const FolderQuestion&) override { return {}; }
  int answer(const Menu&) override { return menu; }
  void act(DialogWindow& modal) override {
    ++acts;
    if (hands) hands(modal);
  }

  Answer messageAnswer = Answer::kYes;
  std::optional<std::wstring> file;
  int menu = 0;
  int acts = 0;
  std::function<void(DialogWindow&)> hands;
};

class Shown : public Dialog {
 public:
  explicit Shown(int resource) : Dialog(resource) {}
  void onInit() override { window().show(true); }
  void onCommand(int id) override {
    commands.push_back(id);
    if (command) command(id);
  }
  std::vector<int> commands;
  std::function<void(int)> command;
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

  Shown dialog(kMainDialog);
  ASSERT_TRUE(dialog.create(nullptr));
  Menu menu = loadMenu(123);
  script.menu = 40021;
  EXPECT_EQ(showMenu(dialog.window(), menu, {}), 40021);
  menu[0].items[0].enabled = false;  // the sub-menu does not open
  EXPECT_EQ(showMenu(dialog.window(), menu, {}), 0);
  script.menu = 77;
  EXPECT_EQ(showMenu(dialog.window(), menu, {}), 0);
}

// A command that a handler posts waits for this handler, whatever modal dialog it opens meanwhile.
TEST(Headless, PostedCommandsWaitForTheHandlerThatPosted) {
  Silent script;
  Shown dialog(kMainDialog);
  ASSERT_TRUE(dialog.create(nullptr));
  bool working = false;
  dialog.command = [&](int id) {
    EXPECT_FALSE(working);
    if (id != kEditButton) return;
    working = true;
    dialog.window().post(7);
    Dialog modal(kValueDialog);
    EXPECT_EQ(modal.runModal(nullptr), 2);
    working = false;
  };
  script.hands = [](DialogWindow& modal) { user::close(modal); };
  EXPECT_TRUE(user::click(dialog.window(), kEditButton));
  EXPECT_EQ(dialog.commands, (std::vector<int>{kEditButton, 7}));
}

TEST(Headless, PostedCommandsAreLostWithTheirWindow) {
  Silent script;
  Shown first(kMainDialog);
  ASSERT_TRUE(first.create(nullptr));
  first.window().post(7);
  first.destroy();
  Shown second(kMainDialog);
  ASSERT_TRUE(second.create(nullptr));
  second.window().post(8);
  user::settle();
  EXPECT_TRUE(first.commands.empty());
  EXPECT_EQ(second.commands, std::vector<int>{8});
}

TEST(Headless, TheKeyboardBelongsToOneWindow) {
  Silent script;
  Shown below(kMainDialog);
  ASSERT_TRUE(below.create(nullptr));
  const int focused = below.window().focused();
  EXPECT_NE(focused, 0);
  Shown above(kValueDialog);
  ASSERT_TRUE(above.create(below.window().native()));
  EXPECT_EQ(below.window().focused(), 0);
  EXPECT_NE(above.window().focused(), 0);
  above.destroy();
  EXPECT_EQ(below.window().focused(), focused);
}

}  // namespace
}  // namespace kiv::headless
