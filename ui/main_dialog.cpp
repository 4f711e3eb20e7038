#include "ui/main_dialog.h"

#include <utility>

#include "platform/host_messages.h"
#include "platform/host_output.h"
#include "platform/questions.h"
#include "ui/context_menus.h"
#include "ui/messages.h"
#include "ui/resource.h"

namespace kiv {

CCnvDlg::CCnvDlg(Shared shared, HostFileLookup findFile, NativeWindow hostFrame)
    : Dialog(IDD_MAIN),
      pick_(shared.pick),
      place_(shared.place),
      findFile_(std::move(findFile)),
      hostFrame_(hostFrame) {}

CCnvDlg::~CCnvDlg() = default;

void CCnvDlg::onInit() {
  folder_ = configurationFolder(findFile_);
  const FolderMade made = makeConfigurationFolder(folder_);
  if (!made.notice.empty()) printError(made.notice);
  load(defaultSpecificationName(folder_, findFile_).value_or(L""), true);
  initOptions();
  if (!place_.isEmpty()) window().setPlace(place_);
  window().show(true);
  if (!made.status.ok()) tell(refusalText(L"フォルダの作成に失敗しました", made.status.failure()));
}

void CCnvDlg::onCommand(int command) {
  if (onTreeCommand(command) || onPickerCommand(command) || onOptionCommand(command) ||
      onFileCommand(command)) {
    return;
  }
  switch (command) {
    case IDOK:
      return closeWith(Closing::kConvert);
    case IDC_MAIN_BATCH:
      return closeWith(Closing::kBatch);
    case IDCANCEL:
      return cancel();
    default:
      return;
  }
}

void CCnvDlg::onContextMenu(int id, Place screen) {
  if (id == IDC_MAIN_TREE) runFromMenu(contextMenu(specification_, tree().selected()), screen);
}

// A picker has nothing left to pick for.
void CCnvDlg::onDestroyed() {
  for (auto& picker : pickers_) picker.reset();
}

void CCnvDlg::reopen() {
  closing_ = Closing::kCancelled;
  window().show(true);
  window().activate();
}

void CCnvDlg::cancel() {
  closing_ = Closing::kCancelled;
  if (!hasWindow()) return;
  place_ = window().place();
  destroy();
  typeIntoHost(kCancelCharacter);
}

void CCnvDlg::closeWith(Closing closing) {
  if (!takeLogFolder()) return;
  takeBlockScope();
  writeDefaultName();
  if (!writeWorkFile()) return;
  closing_ = closing;
  place_ = window().place();
  window().show(false);
  typeIntoHost(kCancelCharacter);
}

void CCnvDlg::tell(const std::wstring& text) { kiv::tell(window(), text); }

bool CCnvDlg::agrees(const std::wstring& question) { return isAgreed(window(), question) && hasWindow(); }

}  // namespace kiv
