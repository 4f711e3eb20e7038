#include "tests/ui/user.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "base/utf8.h"

namespace kiv::test {
namespace {

void fail(const User::Where& where, const std::wstring& reason) {
  ADD_FAILURE_AT(where.file_name(), static_cast<int>(where.line())) << narrow(reason);
}

void mustDo(bool done, const User::Where& where, const wchar_t* what, DialogWindow& window, int id) {
  if (done) return;
  fail(where, std::wstring(L"a person cannot ") + what + L" control " + std::to_wstring(id) + L" of dialog " +
                  std::to_wstring(window.resource()));
}

void addCaptions(const Menu& menu, std::vector<std::wstring>& captions) {
  for (const MenuItem& item : menu) {
    if (item.text.empty()) {
      captions.push_back(L"-");
      continue;
    }
    captions.push_back(item.enabled ? item.text : L"(" + item.text + L")");
    addCaptions(item.items, captions);
  }
}

void addRows(TreeView& tree, TreeItem under, int level, std::wstring& rows) {
  for (const TreeItem item : tree.children(under)) {
    rows += std::wstring(static_cast<std::size_t>(2 * level), L' ') + tree.text(item) + L"\n";
    addRows(tree, item, level + 1, rows);
  }
}

}  // namespace

User::User() { setDialogScript(this); }

User::~User() {
  sawEverything(lastHand_);
  setDialogScript(nullptr);
}

void User::answersMessage(std::wstring text, Answer answer, Where where) {
  expected_.push_back({Message{std::move(text), answer}, where});
}

void User::choosesFile(std::wstring path, Where where) {
  expected_.push_back({File{std::move(path)}, where});
}

void User::cancelsFile(Where where) { expected_.push_back({File{}, where}); }

void User::choosesFolder(std::wstring path, Where where) {
  expected_.push_back({Folder{std::move(path)}, where});
}

void User::cancelsFolder(Where where) { expected_.push_back({Folder{}, where}); }

void User::choosesMenu(int id, Where where) { expected_.push_back({MenuChoice{id}, where}); }

void User::leavesMenu(Where where) { expected_.push_back({MenuChoice{0}, where}); }

void User::inDialog(int resource, Hands hands, Where where) {
  expected_.push_back({Modal{resource, std::move(hands)}, where});
}

void User::sawEverything(Where where) {
  user::settle();
  for (const Expected& each : std::exchange(expected_, {})) {
    fail(each.where, L"did not come until line " + std::to_wstring(where.line()) + L": " + describe(each));
  }
}

std::wstring User::describe(const Expected& expected) {
  struct Words {
    std::wstring operator()(const Message& message) const { return L"the message \"" + message.text + L"\""; }
    std::wstring operator()(const File&) const { return L"a file chooser"; }
    std::wstring operator()(const Folder&) const { return L"a folder chooser"; }
    std::wstring operator()(const MenuChoice&) const { return L"a menu"; }
    std::wstring operator()(const Modal& modal) const {
      return L"the modal dialog " + std::to_wstring(modal.resource);
    }
  };
  return std::visit(Words(), expected.what);
}

// Takes the next expectation when it is of that kind. A wrong one stays: it may still come.
template <class Kind>
std::optional<Kind> User::next(const std::wstring& came) {
  if (expected_.empty()) {
    fail(lastHand_, L"unexpected: " + came);
    return std::nullopt;
  }
  Kind* kind = std::get_if<Kind>(&expected_.front().what);
  if (!kind) {
    fail(expected_.front().where, L"instead of " + describe(expected_.front()) + L" came " + came);
    return std::nullopt;
  }
  return *kind;
}

Answer User::answer(const MessageQuestion& question) {
  messages_.push_back(question);
  const auto expected = next<Message>(L"the message \"" + question.text + L"\"");
  if (!expected) return question.buttons == Buttons::kOk ? Answer::kOk : Answer::kNo;
  const Where where = expected_.front().where;
  expected_.pop_front();
  if (expected->text != question.text) {
    fail(where, L"instead of the message \"" + expected->text + L"\" came \"" + question.text + L"\"");
  }
  if ((expected->answer == Answer::kOk) != (question.buttons == Buttons::kOk)) {
    fail(where, L"the message \"" + question.text + L"\" does not offer that answer");
  }
  return expected->answer;
}

std::optional<std::wstring> User::answer(const FileQuestion& question) {
  lastFile_ = question;
  const auto expected = next<File>(L"a file chooser for " + question.initialName);
  if (!expected) return std::nullopt;
  expected_.pop_front();
  return expected->path;
}

std::optional<std::wstring> User::answer(const FolderQuestion& question) {
  lastFolder_ = question;
  const auto expected = next<Folder>(L"the folder chooser \"" + question.title + L"\"");
  if (!expected) return std::nullopt;
  expected_.pop_front();
  return expected->path;
}

int User::answer(const Menu& menu) {
  lastMenu_ = menu;
  const auto expected = next<MenuChoice>(L"a menu");
  if (!expected) return 0;
  const Where where = expected_.front().where;
  expected_.pop_front();
  if (expected->id == 0) return 0;
  const MenuItem* item = findMenuItem(lastMenu_, expected->id);
  if (item && item->enabled) return expected->id;
  fail(where, L"the menu " + std::wstring(item ? L"greys" : L"lacks") + L" the item " +
                  std::to_wstring(expected->id));
  return 0;
}

void User::act(DialogWindow& modal) {
  const auto expected = next<Modal>(L"the modal dialog " + std::to_wstring(modal.resource()));
  if (!expected || expected->resource != modal.resource()) {
    if (expected) {
      fail(expected_.front().where, L"instead of the modal dialog " + std::to_wstring(expected->resource) +
                                        L" came " + std::to_wstring(modal.resource()));
    }
    user::close(modal);
    return;
  }
  const Where where = expected_.front().where;
  expected_.pop_front();
  auto rest = std::exchange(expected_, {});
  expected->hands(modal);
  sawEverything(where);
  expected_ = std::move(rest);
}

std::vector<std::wstring> User::menuCaptions() const {
  std::vector<std::wstring> captions;
  addCaptions(lastMenu_, captions);
  return captions;
}

void User::click(DialogWindow& window, int id, Where where) {
  lastHand_ = where;
  mustDo(user::click(window, id), where, L"click", window, id);
}

void User::type(DialogWindow& window, int id, std::wstring_view text, Where where) {
  lastHand_ = where;
  mustDo(user::type(window, id, text), where, L"type in", window, id);
}

void User::chooseEntry(DialogWindow& window, int id, std::wstring_view entry, Where where) {
  lastHand_ = where;
  const auto entries = window.combo(id).entries();
  const auto found = std::find(entries.begin(), entries.end(), entry);
  if (found == entries.end()) return fail(where, L"no such entry: " + std::wstring(entry));
  mustDo(user::chooseEntry(window, id, static_cast<int>(found - entries.begin())), where,
         L"choose an entry of", window, id);
}

void User::clickRow(DialogWindow& window, int id, int row, Where where) {
  lastHand_ = where;
  mustDo(user::clickRow(window, id, row), where, L"click that row of", window, id);
}

void User::doubleClickRow(DialogWindow& window, int id, int row, Where where) {
  lastHand_ = where;
  mustDo(user::doubleClickRow(window, id, row), where, L"double-click that row of", window, id);
}

void User::clickHeader(DialogWindow& window, int id, int column, Where where) {
  lastHand_ = where;
  mustDo(user::clickHeader(window, id, column), where, L"click that header of", window, id);
}

void User::clickItem(DialogWindow& window, int id, TreeItem item, Where where) {
  lastHand_ = where;
  mustDo(user::clickItem(window, id, item), where, L"click that item of", window, id);
}

void User::rightClickItem(DialogWindow& window, int id, TreeItem item, Where where) {
  lastHand_ = where;
  mustDo(user::rightClickItem(window, id, item), where, L"right-click that item of", window, id);
}

void User::rightClickEmpty(DialogWindow& window, int id, Where where) {
  lastHand_ = where;
  mustDo(user::rightClickEmpty(window, id), where, L"right-click below the rows of", window, id);
}

void User::rightClickRow(DialogWindow& window, int id, int row, Where where) {
  lastHand_ = where;
  mustDo(user::rightClickRow(window, id, row), where, L"right-click that row of", window, id);
}

void User::typeCell(DialogWindow& window, int id, int row, std::wstring_view text, Where where) {
  lastHand_ = where;
  mustDo(user::typeCell(window, id, row, text), where, L"type in that row of", window, id);
}

void User::press(DialogWindow& window, Key key, bool shift, Where where) {
  lastHand_ = where;
  const int focused = window.focused();
  mustDo(user::press(window, key, shift), where, L"press a key in", window, focused);
}

void User::close(DialogWindow& window, Where where) {
  lastHand_ = where;
  mustDo(user::close(window), where, L"use the closing box", window, 0);
}

void User::cannotClick(DialogWindow& window, int id, Where where) {
  lastHand_ = where;
  if (user::click(window, id)) fail(where, L"a person can click control " + std::to_wstring(id));
}

TreeItem User::item(DialogWindow& window, int id, const std::vector<std::wstring>& path, Where where) {
  TreeView& tree = window.tree(id);
  TreeItem item = 0;
  for (const std::wstring& text : path) {
    const auto children = tree.children(item);
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](TreeItem child) { return tree.text(child) == text; });
    if (found == children.end()) {
      fail(where, L"no \"" + text + L"\" under \"" + (item ? tree.text(item) : L"") + L"\" in\n" +
                      treeText(window, id));
      return 0;
    }
    item = *found;
  }
  return item;
}

DialogWindow* User::shown(int resource, Where where) {
  for (DialogWindow* window : user::shownDialogs()) {
    if (window->resource() == resource) return window;
  }
  fail(where, L"dialog " + std::to_wstring(resource) + L" is not shown");
  return nullptr;
}

bool User::isShown(int resource) const {
  const auto windows = user::shownDialogs();
  return std::any_of(windows.begin(), windows.end(),
                     [resource](const DialogWindow* window) { return window->resource() == resource; });
}

std::wstring treeText(DialogWindow& window, int id, TreeItem under) {
  std::wstring rows;
  addRows(window.tree(id), under, 0, rows);
  return rows;
}

std::string narrow(std::wstring_view text) { return base::utf8::encode(text).bytes; }

}  // namespace kiv::test
