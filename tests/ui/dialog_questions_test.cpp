// Questions through windows of the system, whatever shows them.

#include "platform/questions.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tests/support/temp_folder.h"
#include "tests/ui/test_dialog.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv::test {
namespace {

const MessageQuestion kOverwrite{L"上書きしてよろしいですか？", L"ﾌｧｲﾙ変換", Buttons::kYesNo, Icon::kQuestion,
                                 true};

TEST(Questions, MessagesAreAnsweredOverTheirOwner) {
  User person;
  TestDialog owner(IDD_MAIN);
  ASSERT_TRUE(owner.create(nullptr));
  person.answersMessage(kOverwrite, Answer::kYes);
  person.answersMessage(kOverwrite, Answer::kNo);
  person.answersMessage({L"done", L"KIV"}, Answer::kOk);
  EXPECT_EQ(showMessage(owner.window().native(), kOverwrite), Answer::kYes);
  EXPECT_EQ(showMessage(nullptr, kOverwrite), Answer::kNo);
  EXPECT_EQ(showMessage(nullptr, {L"done", L"KIV"}), Answer::kOk);
  EXPECT_TRUE(owner.window().isWindowEnabled());
}

TEST(Questions, MenuGivesWhatIsChosen) {
  User person;
  TestDialog dialog(IDD_MAIN);
  ASSERT_TRUE(dialog.create(nullptr));
  EXPECT_TRUE(loadMenu(9999).empty());
  Menu menu = loadMenu(IDM_SETTING)[0].items;
  EXPECT_EQ(findMenuItem(menu, 0), nullptr);
  findMenuItem(menu, IDC_CLEAR_RESULTS)->enabled = false;
  person.choosesMenu(40021);
  person.leavesMenu();
  EXPECT_EQ(showMenu(dialog.window(), menu, {50, 50}), 40021);
  EXPECT_EQ(showMenu(dialog.window(), menu, {50, 50}), 0);
  const auto captions = person.menuCaptions();
  EXPECT_EQ(captions.back(), L"設定を削除");
  EXPECT_EQ(std::count(captions.begin(), captions.end(), L"(変換結果ｸﾘｱ)"), 1);
  EXPECT_EQ(std::count(captions.begin(), captions.end(), L"-"), 2);
}

class FileQuestions : public test_support::TempFolder {};

TEST_F(FileQuestions, NamesAreCompleted) {
  User person;
  make("a.LIST", "");
  const std::wstring existing = base::pathText(folder_ / "a.LIST");
  FileQuestion question;
  question.initialName = base::pathText(folder_ / "*.LIST");
  question.defaultExtension = L"LIST";
  person.choosesFile(question, existing);
  EXPECT_EQ(chooseFile(nullptr, question), existing);
  person.cancelsFile(question);
  EXPECT_EQ(chooseFile(nullptr, question), std::nullopt);
  question.saving = true;
  person.choosesFile(question, base::pathText(folder_ / "new"));
  EXPECT_EQ(chooseFile(nullptr, question), base::pathText(folder_ / "new.LIST"));
}

TEST_F(FileQuestions, Folders) {
  User person;
  const FolderQuestion question{L"select", L"", true};
  person.choosesFolder(question, base::pathText(folder_));
  EXPECT_EQ(chooseFolder(nullptr, question), base::pathText(folder_));
  person.cancelsFolder(question);
  EXPECT_EQ(chooseFolder(nullptr, question), std::nullopt);
}

// The person of the tests itself: what was not expected fails a test, and so does what stays away.
TEST(User, FailsTestsThatGoAnotherWay) {
  EXPECT_NONFATAL_FAILURE(
      {
        User person;
        showMessage(nullptr, {L"surprise", L"KIV"});
      },
      "unexpected: the message \"surprise\"");
  EXPECT_NONFATAL_FAILURE(
      {
        User person;
        person.answersMessage({L"one", L"KIV"}, Answer::kOk);
        showMessage(nullptr, {L"one", L"KIV", Buttons::kOk, Icon::kStop});
      },
      "with OK and the stop icon");
  EXPECT_NONFATAL_FAILURE(
      {
        User person;
        TestDialog modal(IDD_LOAD);
        modal.init = [] {};
        EXPECT_EQ(modal.runModal(nullptr), 2);  // closed by its box
      },
      "unexpected: the modal dialog 104");
}

}  // namespace
}  // namespace kiv::test
