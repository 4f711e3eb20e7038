// The controls of a dialog under a person's hands, whatever shows them.

#include "platform/dialog_window.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/ui/test_dialog.h"
#include "tests/ui/user.h"
#include "ui/resource.h"

namespace kiv::test {
namespace {

class DialogControls : public ::testing::Test {
 protected:
  DialogWindow& open(int resource) {
    dialog_ = std::make_unique<TestDialog>(resource);
    dialog_->create(nullptr);
    return dialog_->window();
  }

  User person_;
  std::unique_ptr<TestDialog> dialog_;
};

TEST_F(DialogControls, TypingReplacesTheTextCharacterByCharacter) {
  DialogWindow& window = open(IDD_MAIN);
  window.setText(IDC_MAIN_LOG_FOLDER, L"before");
  EXPECT_TRUE(dialog_->calls.empty());  // only the person edits
  person_.type(window, IDC_MAIN_LOG_FOLDER, L"図a");
  EXPECT_EQ(dialog_->takeCalls(), (Calls{L"edited 1041: 図", L"edited 1041: 図a"}));
  person_.type(window, IDC_MAIN_LOG_FOLDER, L"");
  EXPECT_EQ(dialog_->takeCalls(), Calls{L"edited 1041: "});
  EXPECT_EQ(window.focused(), IDC_MAIN_LOG_FOLDER);
  DialogWindow& load = open(IDD_LOAD);
  EXPECT_FALSE(user::type(load, IDC_LOAD_NAME, L"x"));  // read-only
}

// The text that the handler puts in stays; the next character goes to the caret.
TEST_F(DialogControls, HandlerCompletesWhatIsTyped) {
  DialogWindow& window = open(IDD_VALUE);
  dialog_->edited = [&](int id) {
    const std::wstring text = window.text(id);
    if (text != L"a" && text != L"a-b") return;
    window.setText(id, text + L"-");
    window.combo(id).putCaretAtEnd();
  };
  person_.type(window, IDC_VALUE_COMBO, L"abc");
  EXPECT_EQ(window.text(IDC_VALUE_COMBO), L"a-b-c");
  EXPECT_EQ(dialog_->calls, (Calls{L"edited 1013: a", L"edited 1013: a-b", L"edited 1013: a-b-c"}));
}

TEST_F(DialogControls, ComboBoxSelectionAndField) {
  DialogWindow& window = open(IDD_VALUE);
  ComboBox& combo = window.combo(IDC_VALUE_COMBO);
  for (const wchar_t* entry : {L"1:赤", L"2:黄", L"3:緑"}) combo.add(entry);
  EXPECT_EQ(combo.selected(), -1);
  person_.chooseEntry(window, IDC_VALUE_COMBO, L"2:黄");
  EXPECT_EQ(combo.selected(), 1);
  EXPECT_EQ(window.text(IDC_VALUE_COMBO), L"2:黄");
  EXPECT_EQ(dialog_->takeCalls(), Calls{L"selected 1013"});
  EXPECT_FALSE(user::chooseEntry(window, IDC_VALUE_COMBO, 3));

  combo.select(2);
  EXPECT_EQ(window.text(IDC_VALUE_COMBO), L"3:緑");
  window.setText(IDC_VALUE_COMBO, L"3:緑");
  EXPECT_EQ(combo.selected(), -1);
  EXPECT_EQ(window.text(IDC_VALUE_COMBO), L"3:緑");
  combo.clear();
  EXPECT_TRUE(combo.entries().empty());
  EXPECT_EQ(window.text(IDC_VALUE_COMBO), L"3:緑");
  combo.select(-1);
  EXPECT_EQ(window.text(IDC_VALUE_COMBO), L"");
  EXPECT_TRUE(dialog_->calls.empty());
}

TEST_F(DialogControls, TreeKeepsItsCaretAmongNeighbours) {
  DialogWindow& window = open(IDD_MAIN);
  TreeView& tree = window.tree(IDC_MAIN_TREE);
  const TreeItem root = tree.insert(0, -1, L"図面", 0, 5);
  const TreeItem last = tree.insert(root, -1, L"last", 1, 0);
  const TreeItem first = tree.insert(root, 0, L"first", 1, 0);
  const TreeItem middle = tree.insert(root, 1, L"middle", 1, 0xFFFFFFFF);
  const TreeItem below = tree.insert(middle, -1, L"below", 1, 0);
  EXPECT_EQ(treeText(window, IDC_MAIN_TREE), L"図面\n  first\n  middle\n    below\n  last\n");
  EXPECT_EQ(tree.data(root), 5U);
  EXPECT_EQ(tree.data(middle), 0xFFFFFFFFU);
  EXPECT_EQ(tree.parent(below), middle);
  EXPECT_EQ(tree.parent(root), 0U);

  tree.select(below);
  EXPECT_TRUE(tree.isExpanded(root));
  EXPECT_TRUE(tree.isExpanded(middle));
  tree.remove(middle);
  EXPECT_EQ(tree.caret(), last);
  tree.remove(last);
  EXPECT_EQ(tree.caret(), first);
  tree.remove(first);
  EXPECT_EQ(tree.caret(), root);
  tree.clear();
  EXPECT_EQ(tree.caret(), 0U);
  EXPECT_TRUE(tree.children(0).empty());
}

TEST_F(DialogControls, TabKeyFollowsTheScript) {
  DialogWindow& window = open(IDD_MAIN);
  window.check(IDC_MAIN_BLOCK_INSIDE, true);
  window.enable(IDC_MAIN_EDIT, false);
  window.showControl(IDC_MAIN_INVERT, false);
  EXPECT_EQ(window.focused(), IDC_MAIN_LOAD);
  const int order[] = {IDC_MAIN_SAVE,
                       IDC_MAIN_DEFAULT,
                       IDC_MAIN_TREE,
                       IDC_MAIN_DELETE,
                       IDC_MAIN_UP,
                       IDC_MAIN_DOWN,
                       IDC_MAIN_BLOCK_INSIDE,
                       IDC_MAIN_TEXT_LIST,
                       IDC_MAIN_IGNORE_LOCKS,
                       IDC_MAIN_CREATE_LOG,
                       IDC_MAIN_LOG_FOLDER,
                       IDC_MAIN_LOG_BROWSE,
                       IDOK,
                       IDC_MAIN_BATCH,
                       IDCANCEL,
                       IDC_MAIN_LOAD};
  for (const int id : order) {
    person_.press(window, Key::kTab);
    EXPECT_EQ(window.focused(), id);
  }
  person_.press(window, Key::kTab, true);
  EXPECT_EQ(window.focused(), IDCANCEL);
  window.enable(IDCANCEL, false);
  EXPECT_NE(window.focused(), IDCANCEL);
}

// That every control has a letter of its own is seen in the script itself.
TEST_F(DialogControls, AccessKeysWorkAsClicks) {
  DialogWindow& window = open(IDD_MAIN);
  const auto press = [&](wchar_t letter) { person_.pressWithAlt(window, letter); };
  dialog_->takeCalls();
  press(L'L');
  EXPECT_EQ(window.focused(), IDC_MAIN_LOAD);
  EXPECT_EQ(dialog_->takeCalls(), (Calls{L"command " + std::to_wstring(IDC_MAIN_LOAD)}));
  for (const auto& [letter, id] : {std::pair(L'T', IDC_MAIN_TREE), {L'P', IDC_MAIN_LOG_FOLDER}}) {
    press(letter);
    EXPECT_EQ(window.focused(), id);
    EXPECT_EQ(dialog_->takeCalls(), Calls());
  }
  press(L'G');
  EXPECT_TRUE(window.isChecked(IDC_MAIN_CREATE_LOG));
  press(L'G');
  EXPECT_FALSE(window.isChecked(IDC_MAIN_CREATE_LOG));
  press(L'A');
  press(L'N');
  EXPECT_FALSE(window.isChecked(IDC_MAIN_BLOCK_BOTH));
  EXPECT_TRUE(window.isChecked(IDC_MAIN_BLOCK_INSIDE));
  dialog_->takeCalls();
  window.enable(IDC_MAIN_EDIT, false);
  window.showControl(IDC_MAIN_UP, false);
  for (const wchar_t dead : {L'E', L'U', L'Z'}) press(dead);
  EXPECT_EQ(window.focused(), IDC_MAIN_BLOCK_INSIDE);
  EXPECT_TRUE(dialog_->calls.empty());
}

TEST_F(DialogControls, EnterAndEscape) {
  DialogWindow& window = open(IDD_MAIN);
  dialog_->command = [](int) { return true; };
  window.focus(IDC_MAIN_LOG_FOLDER);
  person_.press(window, Key::kEnter);
  EXPECT_EQ(dialog_->takeCalls(), Calls{L"command 1"});
  window.focus(IDC_MAIN_DELETE);  // a button with the keyboard is the default one
  person_.press(window, Key::kEnter);
  EXPECT_EQ(dialog_->takeCalls(), Calls{L"command 1022"});
  person_.press(window, Key::kEscape);
  EXPECT_EQ(dialog_->takeCalls(), Calls{L"command 2"});

  DialogWindow& load = open(IDD_LOAD);
  load.focus(IDC_LOAD_NAME);
  person_.press(load, Key::kEnter);  // its default button is disabled
  EXPECT_TRUE(dialog_->takeCalls().empty());
}

}  // namespace
}  // namespace kiv::test
