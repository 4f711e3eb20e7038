#include "ui/read_dialog.h"

#include <utility>

#include "ui/resource.h"

namespace kiv {

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

}  // namespace kiv
