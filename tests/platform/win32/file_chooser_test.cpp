// What only the system's own file chooser can refuse.
#include <gtest/gtest.h>

#include "platform/questions.h"
#include "tests/spec/temp_folder.h"
#include "tests/ui/user.h"

namespace kiv::test {
namespace {

class FileChooser : public kiv::testing::TempFolder {};

TEST_F(FileChooser, ANameThatNoFileCanHaveIsLeftOut) {
  User person;
  make("a.LIST", "");
  const std::wstring existing = base::pathText(folder_ / "a.LIST");
  FileQuestion question;
  question.initialName = L"a<b>|\"c\"?.LIST";
  person.choosesFile(question, existing);
  EXPECT_EQ(chooseFile(nullptr, question), existing);
}

}  // namespace
}  // namespace kiv::test
