// How dialogs open, run and go, whatever shows them.

#include "platform/dialog.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/ui/test_dialog.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv::test {
namespace {

TEST(Dialog, ModelessFromOpeningToCancel) {
  User person;
  TestDialog dialog(IDD_MAIN);
  EXPECT_FALSE(dialog.hasWindow());
  ASSERT_TRUE(dialog.create(nullptr));
  EXPECT_FALSE(dialog.create(nullptr));  // one window at a time
  EXPECT_EQ(person.shown(IDD_MAIN), &dialog.window());
  EXPECT_EQ(dialog.window().title(), L"ﾌｧｲﾙ変換");
  EXPECT_EQ(dialog.window().text(IDC_MAIN_TEXT_LIST), L"検索文字リストの\n作成");
  EXPECT_TRUE(dialog.calls.empty());
  person.close(dialog.window());
  EXPECT_FALSE(dialog.hasWindow());
  EXPECT_FALSE(person.isShown(IDD_MAIN));
  EXPECT_EQ(dialog.calls, (Calls{L"command 2", L"destroyed"}));
}

TEST(Dialog, UnknownResourceAndNobodyThere) {
  {
    User person;
    TestDialog unknown(9999);
    EXPECT_FALSE(unknown.create(nullptr));
    EXPECT_EQ(unknown.runModal(nullptr), Dialog::kNotShown);
    EXPECT_TRUE(canShowDialogs());
  }
#if !defined(_WIN32)
  TestDialog dialog(IDD_MAIN);
  EXPECT_FALSE(canShowDialogs());
  EXPECT_FALSE(dialog.create(nullptr));
  EXPECT_EQ(dialog.runModal(nullptr), Dialog::kNotShown);
#endif
}

TEST(Dialog, GoesInItsOwnHandlerAndItsObjectToo) {
  User person;
  auto dialog = std::make_unique<TestDialog>(IDD_VALUE);
  ASSERT_TRUE(dialog->create(nullptr));
  bool destroyed = false;
  dialog->command = [&](int id) {
    if (id != IDOK) return false;
    dialog->window().post(IDC_PICK);  // never runs
    dialog->destroyed = [&] {
      destroyed = true;
      dialog.reset();
    };
    dialog->destroy();
    return true;
  };
  person.click(dialog->window(), IDOK);
  EXPECT_TRUE(destroyed);
  EXPECT_EQ(dialog, nullptr);
  EXPECT_TRUE(user::shownDialogs().empty());
}

TEST(Dialog, OwnerTakesItsDialogsAlong) {
  User person;
  TestDialog owner(IDD_MAIN);
  ASSERT_TRUE(owner.create(nullptr));
  TestDialog owned(IDD_VALUE);
  ASSERT_TRUE(owned.create(owner.window().native()));
  EXPECT_EQ(user::shownDialogs().front(), &owned.window());
  owner.destroy();
  EXPECT_FALSE(owned.hasWindow());
  EXPECT_EQ(owned.calls, Calls{L"destroyed"});
}

TEST(Dialog, ModalEndsWithTheGivenResult) {
  User person;
  TestDialog modal(IDD_LOAD);
  modal.init = [&] { modal.window().enable(IDOK, true); };
  modal.command = [&](int id) {
    modal.end(id + 40);
    modal.window().setText(IDC_LOAD_NAME, L"still there");
    EXPECT_EQ(modal.window().text(IDC_LOAD_NAME), L"still there");
    return true;
  };
  person.inDialog(IDD_LOAD, [&](DialogWindow& window) { person.click(window, IDOK); });
  EXPECT_EQ(modal.runModal(nullptr), 41);

  modal.init = [&] { modal.end(7); };  // before it is shown: nobody sees it
  EXPECT_EQ(modal.runModal(nullptr), 7);
}

TEST(Dialog, PostedCommandsRunAfterTheHandler) {
  User person;
  TestDialog dialog(IDD_MAIN);
  ASSERT_TRUE(dialog.create(nullptr));
  bool working = false;
  dialog.command = [&](int id) {
    EXPECT_FALSE(working);
    working = true;
    if (id == IDC_MAIN_DELETE) {
      dialog.window().post(IDC_CLEAR_SETTINGS);
      dialog.window().post(IDC_CLEAR_RESULTS);
    }
    if (id == IDC_CLEAR_SETTINGS) dialog.window().post(IDC_CLEAR_CONDITIONS);
    working = false;
    return true;
  };
  person.click(dialog.window(), IDC_MAIN_DELETE);
  EXPECT_EQ(dialog.calls, (Calls{L"command 1022", L"command 40002", L"command 40004", L"command 40003"}));
}

}  // namespace
}  // namespace kiv::test
