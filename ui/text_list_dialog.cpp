#include "ui/text_list_dialog.h"

#include <algorithm>
#include <utility>

#include "base/files.h"
#include "base/paths.h"
#include "base/text_files.h"
#include "platform/questions.h"
#include "spec/text_search_list.h"
#include "ui/messages.h"
#include "ui/resource.h"

namespace kiv {
namespace {

// As many as the grid shows at once.
constexpr int kFirstRows = 16;

constexpr const wchar_t* kCaption = L"文字検索リスト";
constexpr const wchar_t* kPattern = L"*.LIST";

enum class RowCommand { kInsert, kDelete, kAppend, kUp, kDown };

constexpr std::pair<int, RowCommand> kRowCommands[] = {{IDC_ROW_INSERT, RowCommand::kInsert},
                                                       {IDC_ROW_DELETE, RowCommand::kDelete},
                                                       {IDC_ROW_APPEND, RowCommand::kAppend},
                                                       {IDC_ROW_UP, RowCommand::kUp},
                                                       {IDC_ROW_DOWN, RowCommand::kDown}};

// False where the command would do nothing. `current` is -1 without a current row; only appending needs none.
bool canEditRows(RowCommand command, int rowCount, int current) {
  if (command == RowCommand::kAppend) return true;
  if (current < 0 || current >= rowCount) return false;
  if (command == RowCommand::kUp) return current > 0;
  return command != RowCommand::kDown || current + 1 < rowCount;
}

// The row that is current afterwards. Inserting puts an empty row before the current one; a column that has
// lost its last row gets an empty one.
int editRows(RowCommand command, std::vector<std::wstring>& rows, int current) {
  if (!canEditRows(command, static_cast<int>(rows.size()), current)) return current;
  const auto at = rows.begin() + std::max(current, 0);
  switch (command) {
    case RowCommand::kInsert:
      rows.insert(at, std::wstring());
      return current;
    case RowCommand::kDelete:
      rows.erase(at);
      if (rows.empty()) rows.emplace_back();
      return std::min(current, static_cast<int>(rows.size()) - 1);
    case RowCommand::kAppend:
      rows.emplace_back();
      return static_cast<int>(rows.size()) - 1;
    case RowCommand::kUp:
      std::swap(*at, *(at - 1));
      return current - 1;
    case RowCommand::kDown:
      std::swap(*at, *(at + 1));
      return current + 1;
  }
  return current;
}

}  // namespace

CMojiListDlg::CMojiListDlg(std::wstring folder) : Dialog(IDD_TEXT_LIST), folder_(std::move(folder)) {}

void CMojiListDlg::onInit() {
  TextGrid& grid = window().grid(IDC_TEXT_LIST_GRID);
  grid.setTitle(L"検索登録文字");
  grid.setRowCount(kFirstRows);
  startNew();
}

void CMojiListDlg::onCommand(int command) {
  switch (command) {
    case IDC_TEXT_LIST_NEW:
      return startNew();
    case IDC_TEXT_LIST_LOAD:
      return load();
    case IDC_TEXT_LIST_SAVE:
      return save();
    default:
      return Dialog::onCommand(command);
  }
}

void CMojiListDlg::startNew() {
  showRows({}, 0);
  setName({});
}

void CMojiListDlg::load() {
  for (;;) {
    const auto path = askFile(false, folder_ + kPattern);
    if (!path || loadFile(*path)) return;
  }
}

std::optional<std::wstring> CMojiListDlg::askFile(bool saving, const std::wstring& initialName) {
  FileQuestion question;
  question.saving = saving;
  question.mustExist = false;  // what cannot be opened is told here
  question.initialName = initialName;
  question.defaultExtension = L"LIST";
  question.filters = {{std::wstring(kCaption) + L" (" + kPattern + L")", kPattern}};
  return chooseFile(window().native(), question);
}

bool CMojiListDlg::loadFile(const std::wstring& path) {
  const auto lines = readTextSearchList(base::pathFromText(path));
  if (!lines.ok()) {
    tell(window(), lines.failure().reason, kCaption);
    return false;
  }
  std::vector<std::wstring> shown = lines.value();
  shown.emplace_back();  // to type into
  showRows(shown, 0);
  const base::PathParts parts = base::splitPath(path);
  setName(parts.name + parts.extension);
  return true;
}

void CMojiListDlg::save() {
  const std::vector<std::wstring> written = rows();
  if (tellUnwritable(written)) return;
  auto path = askFile(true, folder_ + (name_.empty() ? kPattern : name_));
  while (path && base::fileExists(*path) && !isAgreed(window(), L"上書きしてよろしいですか？", kCaption))
    path = askFile(true, *path);
  if (!path) return;
  const base::PathParts parts = base::splitPath(*path);
  setName(parts.name + parts.extension);
  const base::Status status = writeTextSearchList(base::pathFromText(*path), written);
  if (!status.ok()) tell(window(), refusalText(kTextListCannotOpen, status.failure()), kCaption);
}

// The row stays as it is, selected, so that the person can change it.
bool CMojiListDlg::tellUnwritable(const std::vector<std::wstring>& rows) {
  for (size_t index = 0; index < rows.size(); ++index) {
    const std::wstring characters = base::unwritableCharacters(rows[index]);
    if (characters.empty() || isBlankRow(rows[index])) continue;
    window().grid(IDC_TEXT_LIST_GRID).setCurrentRow(static_cast<int>(index));
    tell(window(), std::to_wstring(index + 1) + L"行目に保存できない文字があります: " + characters, kCaption);
    return true;
  }
  return false;
}

void CMojiListDlg::onContextMenu(int id, Place screen) {
  if (id != IDC_TEXT_LIST_GRID) return;
  std::vector<std::wstring> changed = rows();
  const int current = window().grid(id).currentRow();
  Menu menu = loadMenu(IDM_GRID);
  for (const auto& [item, command] : kRowCommands) {
    if (MenuItem* shown = findMenuItem(menu, item)) {
      shown->enabled = canEditRows(command, static_cast<int>(changed.size()), current);
    }
  }
  if (menu.empty()) return;
  const int chosen = showMenu(window(), menu.front().items, screen);
  for (const auto& [item, command] : kRowCommands) {
    if (item != chosen) continue;
    const int row = editRows(command, changed, current);
    window().grid(id).setRowCount(static_cast<int>(changed.size()));
    showRows(changed, row);
  }
}

// Below the last row there is always another to go to once it holds a text.
bool CMojiListDlg::onKey(int id, Key key) {
  if (id != IDC_TEXT_LIST_GRID || (key != Key::kDown && key != Key::kEnter)) return false;
  TextGrid& grid = window().grid(id);
  const int last = grid.rowCount() - 1;
  if (grid.currentRow() == last && !isBlankRow(grid.text(last))) grid.setRowCount(last + 2);
  return false;
}

std::vector<std::wstring> CMojiListDlg::rows() {
  const TextGrid& grid = window().grid(IDC_TEXT_LIST_GRID);
  std::vector<std::wstring> rows;
  for (int row = 0; row < grid.rowCount(); ++row) rows.push_back(grid.text(row));
  return rows;
}

// The grid keeps the rows that it has, empty.
void CMojiListDlg::showRows(const std::vector<std::wstring>& rows, int current) {
  TextGrid& grid = window().grid(IDC_TEXT_LIST_GRID);
  grid.setRowCount(std::max(grid.rowCount(), static_cast<int>(rows.size())));
  for (int row = 0; row < grid.rowCount(); ++row) {
    const auto index = static_cast<size_t>(row);
    grid.setText(row, index < rows.size() ? std::wstring_view(rows[index]) : std::wstring_view());
  }
  grid.setCurrentRow(current);
}

void CMojiListDlg::setName(std::wstring name) {
  name_ = std::move(name);
  window().setText(IDC_TEXT_LIST_NAME, name_);
}

}  // namespace kiv
