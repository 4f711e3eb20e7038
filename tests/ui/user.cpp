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

std::wstring describe(const MessageQuestion& question) {
  constexpr const wchar_t* kIcons[] = {L"no", L"the information", L"the question", L"the warning",
                                       L"the stop"};
  const std::wstring buttons = question.buttons == Buttons::kOk ? L"OK"
                               : question.noIsDefault           ? L"yes, [no]"
                                                                : L"[yes], no";
  return L"the message \"" + question.text + L"\" titled \"" + question.caption + L"\" with " + buttons +
         L" and " + kIcons[static_cast<int>(question.icon)] + L" icon";
}

std::wstring describe(const FileQuestion& question) {
  std::wstring words = L"a file chooser titled \"" + question.title + L"\" for \"" + question.initialName +
                       L"\", extension \"" + question.defaultExtension + L"\"";
  if (question.saving) words += L", saving";
  if (question.mustExist) words += L", must exist";
  for (const auto& [name, pattern] : question.filters) words += L", " + name + L"|" + pattern;
  return words;
}

std::wstring describe(const FilesQuestion& question) {
  std::wstring words = L"a chooser of several files titled \"" + question.title + L"\"";
  for (const auto& [name, pattern] : question.filters) words += L", " + name + L"|" + pattern;
  return words;
}

std::wstring describe(const FolderQuestion& question) {
  return L"a folder chooser titled \"" + question.title + L"\" at \"" + question.start + L"\"" +
         (question.newStyle ? L" in the new style" : L"");
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

void User::answersMessage(MessageQuestion question, Answer answer, Where where) {
  expected_.push_back({Message{std::move(question), answer}, where});
}

void User::choosesFile(FileQuestion question, std::wstring path, Where where) {
  expected_.push_back({File{std::move(question), std::move(path)}, where});
}

void User::cancelsFile(FileQuestion question, Where where) {
  expected_.push_back({File{std::move(question), std::nullopt}, where});
}

void User::choosesFiles(FilesQuestion question, std::vector<std::wstring> paths, Where where) {
  expected_.push_back({Files{std::move(question), std::move(paths)}, where});
}

void User::choosesFolder(FolderQuestion question, std::wstring path, Where where) {
  expected_.push_back({Folder{std::move(question), std::move(path)}, where});
}

void User::cancelsFolder(FolderQuestion question, Where where) {
  expected_.push_back({Folder{std::move(question), std::nullopt}, where});
}

void User::choosesMenu(int id, Where where) { expected_.push_back({MenuChoice{id}, where}); }

void User::leavesMenu(Where where) { expected_.push_back({MenuChoice{0}, where}); }

void User::inDialog(int resource, Hands hands, Where where) {
  expected_.push_back({Modal{resource, std::move(hands)}, where});
}

void User::sawEverything(Where where) {
  const auto describeAny = [](const auto& expected) -> std::wstring {
    if constexpr (requires { expected.question; }) {
      return describe(expected.question);
    } else if constexpr (requires { expected.resource; }) {
      return L"the modal dialog " + std::to_wstring(expected.resource);
    } else {
      return L"a menu";
    }
  };
  user::settle();
  for (const Expected& each : std::exchange(expected_, {})) {
    fail(each.where, L"did not come until line " + std::to_wstring(where.line()) + L": " +
                         std::visit(describeAny, each.what));
  }
}

// The next expectation when it is of that kind. A wrong one stays: it may still come.
template <class Kind>
const Kind* User::next(const std::wstring& came) {
  if (expected_.empty()) {
    fail(lastHand_, L"unexpected: " + came);
    return nullptr;
  }
  const Kind* kind = std::get_if<Kind>(&expected_.front().what);
  if (!kind) fail(expected_.front().where, L"something else was to come than " + came);
  return kind;
}

template <class Kind, class Question>
std::optional<Kind> User::takeFor(const Question& question) {
  const Kind* expected = next<Kind>(describe(question));
  if (!expected) return std::nullopt;
  if (expected->question != question) {
    fail(expected_.front().where,
         L"instead of " + describe(expected->question) + L" came " + describe(question));
  }
  const Kind taken = *expected;
  expected_.pop_front();
  return taken;
}

Answer User::answer(const MessageQuestion& question) {
  const auto expected = takeFor<Message>(question);
  if (!expected) return question.buttons == Buttons::kOk ? Answer::kOk : Answer::kNo;
  return expected->answer;
}

std::optional<std::wstring> User::answer(const FileQuestion& question) {
  const auto expected = takeFor<File>(question);
  return expected ? expected->path : std::nullopt;
}

std::vector<std::wstring> User::answer(const FilesQuestion& question) {
  const auto expected = takeFor<Files>(question);
  return expected ? expected->paths : std::vector<std::wstring>();
}

std::optional<std::wstring> User::answer(const FolderQuestion& question) {
  const auto expected = takeFor<Folder>(question);
  return expected ? expected->path : std::nullopt;
}

int User::answer(const Menu& menu) {
  lastMenu_ = menu;
  const auto* expected = next<MenuChoice>(L"a menu");
  if (!expected) return 0;
  const int id = expected->id;
  const Where where = expected_.front().where;
  expected_.pop_front();
  if (id == 0) return 0;
  const MenuItem* item = findMenuItem(lastMenu_, id);
  if (item && item->enabled) return id;
  fail(where, L"the menu " + std::wstring(item ? L"greys" : L"lacks") + L" the item " + std::to_wstring(id));
  return 0;
}

void User::act(DialogWindow& modal) {
  const auto* expected = next<Modal>(L"the modal dialog " + std::to_wstring(modal.resource()));
  if (!expected || expected->resource != modal.resource()) {
    if (expected) {
      fail(expected_.front().where, L"instead of the modal dialog " + std::to_wstring(expected->resource) +
                                        L" came " + std::to_wstring(modal.resource()));
    }
    user::close(modal);
    return;
  }
  const Where where = expected_.front().where;
  const Hands hands = expected->hands;
  expected_.pop_front();
  auto rest = std::exchange(expected_, {});
  hands(modal);
  sawEverything(where);
  expected_ = std::move(rest);
}

void User::failed(const std::wstring& reason) { fail(lastHand_, reason); }

std::vector<std::wstring> User::menuCaptions() const {
  std::vector<std::wstring> captions;
  addCaptions(lastMenu_, captions);
  return captions;
}

template <class Hand, class... Arguments>
void User::does(const Where& where, const wchar_t* what, Hand hand, DialogWindow& window, int id,
                const Arguments&... arguments) {
  const int dialog = window.resource();
  lastHand_ = where;
  if (hand(window, id, arguments...)) return;
  fail(where, std::wstring(L"a person cannot ") + what + L" control " + std::to_wstring(id) + L" of dialog " +
                  std::to_wstring(dialog));
}

void User::click(DialogWindow& window, int id, Where where) {
  does(where, L"click", user::click, window, id);
}

void User::type(DialogWindow& window, int id, std::wstring_view text, Where where) {
  does(where, L"type in", user::type, window, id, text);
}

void User::chooseEntry(DialogWindow& window, int id, std::wstring_view entry, Where where) {
  const auto entries = window.combo(id).entries();
  const auto found = std::find(entries.begin(), entries.end(), entry);
  if (found == entries.end()) return fail(where, L"no such entry: " + std::wstring(entry));
  does(where, L"choose an entry of", user::chooseEntry, window, id,
       static_cast<int>(found - entries.begin()));
}

void User::clickRow(DialogWindow& window, int id, int row, Where where) {
  clickRowWith(user::Held::kNothing, window, id, row, where);
}

void User::clickRowWith(user::Held held, DialogWindow& window, int id, int row, Where where) {
  does(where, L"click that row of", user::clickRow, window, id, row, held);
}

void User::doubleClickRow(DialogWindow& window, int id, int row, Where where) {
  does(where, L"double-click that row of", user::doubleClickRow, window, id, row);
}

void User::clickHeader(DialogWindow& window, int id, int column, Where where) {
  does(where, L"click that header of", user::clickHeader, window, id, column);
}

void User::clickItem(DialogWindow& window, int id, TreeItem item, Where where) {
  does(where, L"click that item of", user::clickItem, window, id, item);
}

void User::doubleClickItem(DialogWindow& window, int id, TreeItem item, Where where) {
  does(where, L"double-click that item of", user::doubleClickItem, window, id, item);
}

void User::rightClickItem(DialogWindow& window, int id, TreeItem item, Where where) {
  does(where, L"right-click that item of", user::rightClickItem, window, id, item);
}

void User::rightClickEmpty(DialogWindow& window, int id, Where where) {
  does(where, L"right-click below the rows of", user::rightClickEmpty, window, id);
}

void User::rightClickRow(DialogWindow& window, int id, int row, Where where) {
  does(where, L"right-click that row of", user::rightClickRow, window, id, row);
}

void User::typeCell(DialogWindow& window, int id, int row, std::wstring_view text, Where where) {
  does(where, L"type in that row of", user::typeCell, window, id, row, text);
}

void User::press(DialogWindow& window, Key key, bool shift, Where where) {
  const auto hand = [&](DialogWindow& pressed, int) { return user::press(pressed, key, shift); };
  does(where, L"press a key in", hand, window, window.focused());
}

void User::pressWithAlt(DialogWindow& window, wchar_t letter, Where where) {
  const auto hand = [&](DialogWindow& pressed, int) { return user::pressWithAlt(pressed, letter); };
  does(where, L"press a letter with Alt in", hand, window, window.focused());
}

void User::close(DialogWindow& window, Where where) {
  const auto hand = [](DialogWindow& closed, int) { return user::close(closed); };
  does(where, L"use the closing box, no", hand, window, 0);
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
