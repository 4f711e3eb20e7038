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

TEST_F(FileQuestions, SeveralFilesComeInTheChoosersOrderAndTheCurrentFolderStays) {
  User person;
  const std::filesystem::path current = std::filesystem::current_path();
  const FilesQuestion question{L"several", {{L"all", L"*.*"}}};
  std::vector<std::wstring> paths;
  for (const char* name : {"b.dwg", "a b.dwg", "c.dwg"}) paths.push_back(base::pathText(make(name, "")));
  for (const auto& chosen : {paths, {paths.front()}, {}}) {
    person.choosesFiles(question, chosen);
    EXPECT_EQ(chooseFiles(nullptr, question), chosen);
  }
  EXPECT_EQ(std::filesystem::current_path(), current);
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
