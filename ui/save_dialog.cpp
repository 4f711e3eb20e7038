#include "ui/save_dialog.h"

#include <utility>

#include "platform/paths.h"
#include "ui/resource.h"

namespace kiv {

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
  if (findHostFile(folder() + nameField()) && !isAgreed(L"上書きしてよろしいですか？")) return;
  takeFields();
  if (accepts()) end(IDOK);
}

}  // namespace kiv
