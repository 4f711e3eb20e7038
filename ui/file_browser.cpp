#include "ui/file_browser.h"

#include <utility>

#include "base/files.h"
#include "platform/questions.h"
#include "platform/screen_scale.h"
#include "ui/file_refusal.h"
#include "ui/module_title.h"
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
  if (!isAgreed(L"削除してよろしいですか？")) return;
  const base::Status deleted = base::removeFile(base::pathFromText(folder_ + nameField()));
  if (!deleted.ok()) return tellRefusal(L"ファイルの削除に失敗しました", deleted.failure());
  fill();
  window().setText(controls_.name, L"");
  window().setText(controls_.remark, L"");
  window().enable(IDOK, false);
}

bool FileBrowser::isAgreed(const std::wstring& question) {
  return showMessage(window().native(), {question, kModuleTitle, Buttons::kYesNo, Icon::kQuestion, true}) ==
         Answer::kYes;
}

void FileBrowser::tellRefusal(const std::wstring& what, const base::Failure& failure) {
  showMessage(window().native(), {refusalText(what, failure), kModuleTitle, Buttons::kOk, Icon::kWarning});
}

void FileBrowser::takeFields() {
  name_ = window().text(controls_.name);
  remark_ = window().text(controls_.remark);
}

}  // namespace kiv
