#include "ui/file_browser.h"

#include <utility>

#include "base/files.h"
#include "platform/paths.h"
#include "platform/screen_scale.h"
#include "ui/messages.h"
#include "ui/resource.h"

namespace kiv {
namespace {

// Of the reference resolution.
constexpr int kNameWidth = 100;
constexpr int kRemarkWidth = 250;

}  // namespace

FileBrowser::FileBrowser(int resource, const Controls& controls, std::wstring folder)
    : Dialog(resource), controls_(controls), folder_(std::move(folder)) {}

void FileBrowser::onInit() {
  window()
      .list(controls_.list)
      .setColumns({{L"ﾌｧｲﾙ名", scaled(kNameWidth)}, {L"備考", scaled(kRemarkWidth)}});
  fill();
}

void FileBrowser::fill() {
  files_ = specificationFiles(folder_);
  showFiles();
}

void FileBrowser::showFiles() {
  ListView& list = window().list(controls_.list);
  list.clear();
  for (const SpecificationFile& file : files_) list.addRow({file.name, file.remark});
}

void FileBrowser::onSelected(int id) {
  const int row = id == controls_.list ? window().list(id).selected() : -1;
  if (row < 0) return;
  window().setText(controls_.name, files_[static_cast<size_t>(row)].name);
  window().setText(controls_.remark, files_[static_cast<size_t>(row)].remark);
}

// The column does not matter, and the first click puts the last name first.
void FileBrowser::onHeaderClicked(int id, int /*column*/) {
  if (id != controls_.list) return;
  ListView& list = window().list(id);
  const int row = list.selected();
  const std::wstring selected = row < 0 ? std::wstring() : files_[static_cast<size_t>(row)].name;
  sortByName(files_, std::exchange(sortsDescending_, !sortsDescending_));
  showFiles();
  for (size_t index = 0; row >= 0 && index < files_.size(); ++index) {
    if (files_[index].name == selected) list.select(static_cast<int>(index));
  }
}

bool FileBrowser::onKey(int id, Key key) {
  if (id != controls_.list || key != Key::kDelete || nameField().empty()) return false;
  deleteNamedFile();
  return true;
}

void FileBrowser::deleteNamedFile() {
  if (!isAgreed(window(), L"削除してよろしいですか？")) return;
  const base::Status deleted = base::removeFile(base::pathFromText(folder_ + nameField()));
  if (!deleted.ok()) return tellRefusal(L"ファイルの削除に失敗しました", deleted.failure());
  fill();
  window().setText(controls_.name, L"");
  window().setText(controls_.remark, L"");
  window().enable(IDOK, false);
}

void FileBrowser::tellRefusal(const std::wstring& what, const base::Failure& failure) {
  tell(window(), refusalText(what, failure));
}

void FileBrowser::takeFields() {
  name_ = window().text(controls_.name);
  remark_ = window().text(controls_.remark);
}

// --- Loading

CReadDlg::CReadDlg(std::wstring folder)
    : FileBrowser(IDD_LOAD, {IDC_LOAD_NAME, IDC_LOAD_REMARK, IDC_LOAD_LIST}, std::move(folder)) {}

void CReadDlg::onSelected(int id) {
  FileBrowser::onSelected(id);
  if (!nameField().empty()) window().enable(IDOK, true);
}

void CReadDlg::onDoubleClicked(int id) {
  if (id == IDC_LOAD_LIST && window().list(id).selected() >= 0) onCommand(IDOK);
}

void CReadDlg::onCommand(int command) {
  if (command == IDOK) {
    if (!window().isEnabled(IDOK)) return;
    takeFields();
  }
  FileBrowser::onCommand(command);
}

// --- Saving

CSaveDlg::CSaveDlg(std::wstring folder)
    : FileBrowser(IDD_SAVE, {IDC_SAVE_NAME, IDC_SAVE_REMARK, IDC_SAVE_LIST}, std::move(folder)) {}

void CSaveDlg::onSelected(int id) {
  FileBrowser::onSelected(id);
  onEdited(IDC_SAVE_NAME);
}

void CSaveDlg::onEdited(int id) {
  if (id == IDC_SAVE_NAME) window().enable(IDOK, !nameField().empty());
}

void CSaveDlg::onCommand(int command) {
  if (command == IDOK) return save();
  FileBrowser::onCommand(command);
}

void CSaveDlg::save() {
  if (nameField().empty()) return;
  window().setText(IDC_SAVE_NAME, withSpecificationExtension(nameField()));
  if (findHostFile(folder() + nameField()) && !isAgreed(window(), L"上書きしてよろしいですか？")) return;
  takeFields();
  if (accepts()) end(IDOK);
}

}  // namespace kiv
