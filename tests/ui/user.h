#pragma once
// The person of the dialog tests: expects questions, answers them, and acts on dialogs. What a person could
// not do, and every question that comes unexpected or stays away, fails the test.

#include <deque>
#include <functional>
#include <optional>
#include <source_location>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/dialog_script.h"
#include "platform/user_input.h"

namespace kiv::test {

class User : public DialogScript {
 public:
  using Where = std::source_location;
  using Hands = std::function<void(DialogWindow&)>;

  User();   // answers from now on
  ~User();  // everything expected must have come
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  // --- What is expected, in the order in which it will come
  // A question that differs in anything from the expected one fails the test.
  void answersMessage(MessageQuestion question, Answer answer, Where where = Where::current());
  void choosesFile(FileQuestion question, std::wstring path, Where where = Where::current());
  void cancelsFile(FileQuestion question, Where where = Where::current());
  void choosesFiles(FilesQuestion question, std::vector<std::wstring> paths, Where where = Where::current());
  void choosesFolder(FolderQuestion question, std::wstring path, Where where = Where::current());
  void cancelsFolder(FolderQuestion question, Where where = Where::current());
  void choosesMenu(int id, Where where = Where::current());
  void leavesMenu(Where where = Where::current());
  // A modal dialog. What `hands` expects itself comes before the rest. When the dialog is still open
  // afterwards, the next expectation must be for it too.
  void inDialog(int resource, Hands hands, Where where = Where::current());
  // Fails when something expected has not come yet.
  void sawEverything(Where where = Where::current());

  // --- What came
  const Menu& lastMenu() const { return lastMenu_; }
  // Of the last menu, sub-menus after their item, greyed ones in brackets; "-" is a separator.
  std::vector<std::wstring> menuCaptions() const;

  // --- Hands
  void click(DialogWindow& window, int id, Where where = Where::current());
  void type(DialogWindow& window, int id, std::wstring_view text, Where where = Where::current());
  void chooseEntry(DialogWindow& window, int id, std::wstring_view entry, Where where = Where::current());
  void clickRow(DialogWindow& window, int id, int row, Where where = Where::current());
  void clickRowWith(user::Held held, DialogWindow& window, int id, int row, Where where = Where::current());
  void doubleClickRow(DialogWindow& window, int id, int row, Where where = Where::current());
  void clickHeader(DialogWindow& window, int id, int column, Where where = Where::current());
  void clickItem(DialogWindow& window, int id, TreeItem item, Where where = Where::current());
  void doubleClickItem(DialogWindow& window, int id, TreeItem item, Where where = Where::current());
  void rightClickItem(DialogWindow& window, int id, TreeItem item, Where where = Where::current());
  void rightClickEmpty(DialogWindow& window, int id, Where where = Where::current());
  void rightClickRow(DialogWindow& window, int id, int row, Where where = Where::current());
  void typeCell(DialogWindow& window, int id, int row, std::wstring_view text,
                Where where = Where::current());
  void press(DialogWindow& window, Key key, bool shift = false, Where where = Where::current());
  void pressWithAlt(DialogWindow& window, wchar_t letter, Where where = Where::current());
  void close(DialogWindow& window, Where where = Where::current());
  // Not possible for a person.
  void cannotClick(DialogWindow& window, int id, Where where = Where::current());

  // --- Eyes
  // Follows texts from the top of the tree; fails and gives 0 where there is none such.
  TreeItem item(DialogWindow& window, int id, const std::vector<std::wstring>& path,
                Where where = Where::current());
  // The shown dialog of that resource, the newest of several; fails and gives null when there is none.
  DialogWindow* shown(int resource, Where where = Where::current());
  bool isShown(int resource) const;

  // --- DialogScript
  Answer answer(const MessageQuestion& question) override;
  std::optional<std::wstring> answer(const FileQuestion& question) override;
  std::vector<std::wstring> answer(const FilesQuestion& question) override;
  std::optional<std::wstring> answer(const FolderQuestion& question) override;
  int answer(const Menu& menu) override;
  void act(DialogWindow& modal) override;
  void failed(const std::wstring& reason) override;

 private:
  struct Message {
    MessageQuestion question;
    Answer answer;
  };
  struct File {
    FileQuestion question;
    std::optional<std::wstring> path;
  };
  struct Files {
    FilesQuestion question;
    std::vector<std::wstring> paths;
  };
  struct Folder {
    FolderQuestion question;
    std::optional<std::wstring> path;
  };
  struct MenuChoice {
    int id;
  };
  struct Modal {
    int resource;
    Hands hands;
  };
  struct Expected {
    std::variant<Message, File, Files, Folder, MenuChoice, Modal> what;
    Where where;
  };

  template <class Kind>
  const Kind* next(const std::wstring& came);
  template <class Kind, class Question>
  std::optional<Kind> takeFor(const Question& question);
  template <class Hand, class... Arguments>
  void does(const Where& where, const wchar_t* what, Hand hand, DialogWindow& window, int id,
            const Arguments&... arguments);

  std::deque<Expected> expected_;
  Where lastHand_ = Where::current();  // unexpected questions are reported here
  Menu lastMenu_;
};

// The rows of a tree under an item (0: all), a line each, two blanks before it for each level.
std::wstring treeText(DialogWindow& window, int id, TreeItem under = 0);

// For messages of failed tests.
std::string narrow(std::wstring_view text);

}  // namespace kiv::test
