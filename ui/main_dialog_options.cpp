// The main dialog's options: block scope, locks, log, and the text search lists.

#include <algorithm>

#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "base/paths.h"
#include "platform/questions.h"
#include "platform/settings.h"
#include "ui/main_dialog.h"
#include "ui/resource.h"
#include "ui/text_list_dialog.h"

namespace kiv {
namespace {

constexpr int kScopeButtons[] = {IDC_MAIN_BLOCK_SURFACE, IDC_MAIN_BLOCK_INSIDE, IDC_MAIN_BLOCK_BOTH};
constexpr int kLastScope = 2;

// A host that holds one drawing at a time cannot open the drawings of a batch.
bool holdsOneDocument() {
  resbuf value{};
  return acedGetVar(L"SDI", &value) == RTNORM && value.restype == RTSHORT && value.resval.rint >= 1;
}

}  // namespace

void CCnvDlg::initOptions() {
  if (holdsOneDocument()) window().enable(IDC_MAIN_BATCH, false);
  options_.blockScope = std::clamp(readCommonInteger(kBlockScopeKey, 0), 0, kLastScope);
  writeCommonInteger(kBlockScopeKey, options_.blockScope);
  window().check(kScopeButtons[options_.blockScope], true);
  options_.ignoreLocks = readCommonInteger(kIgnoreLocksKey, 0) != 0;
  options_.createLog = readCommonInteger(kCreateLogKey, 0) != 0;
  options_.logFolder = readCommonText(kLogFolderKey, L"");
  window().check(IDC_MAIN_IGNORE_LOCKS, options_.ignoreLocks);
  window().check(IDC_MAIN_CREATE_LOG, options_.createLog);
  window().setText(IDC_MAIN_LOG_FOLDER, options_.logFolder);
  enableLogFolder();
}

bool CCnvDlg::onOptionCommand(int command) {
  switch (command) {
    case IDC_MAIN_IGNORE_LOCKS:
      options_.ignoreLocks = window().isChecked(IDC_MAIN_IGNORE_LOCKS);
      return true;
    case IDC_MAIN_CREATE_LOG:
      options_.createLog = window().isChecked(IDC_MAIN_CREATE_LOG);
      enableLogFolder();
      return true;
    case IDC_MAIN_LOG_BROWSE:
      browseForLogFolder();
      return true;
    case IDC_MAIN_TEXT_LIST:
      editTextLists();
      return true;
    default:
      return false;
  }
}

void CCnvDlg::enableLogFolder() {
  window().enable(IDC_MAIN_LOG_FOLDER, options_.createLog);
  window().enable(IDC_MAIN_LOG_BROWSE, options_.createLog);
}

// Leaving the browser empties the field: people use it to take a folder back.
void CCnvDlg::browseForLogFolder() {
  const FolderQuestion question{L"ログの書き出し先フォルダを選択してください",
                                window().text(IDC_MAIN_LOG_FOLDER), true};
  const std::wstring chosen = chooseFolder(window().native(), question).value_or(L"");
  if (hasWindow()) window().setText(IDC_MAIN_LOG_FOLDER, chosen);
}

// The host's frame owns the text list dialog, so this one would stay open to clicks that close it.
void CCnvDlg::editTextLists() {
  window().enableWindow(false);
  CMojiListDlg(folder_).runModal(hostFrame_);
  if (!hasWindow()) return;
  window().enableWindow(true);
  window().activate();
}

// False when a log is wanted but cannot be written where the person says.
bool CCnvDlg::takeLogFolder() {
  if (!window().isChecked(IDC_MAIN_CREATE_LOG)) return true;
  options_.logFolder = window().text(IDC_MAIN_LOG_FOLDER);
  if (base::createFolders(options_.logFolder)) return true;
  tell(L"ログの書き出し先が間違っています");
  if (hasWindow()) window().focus(IDC_MAIN_LOG_FOLDER);
  return false;
}

void CCnvDlg::takeBlockScope() {
  for (int scope = 0; scope <= kLastScope; ++scope) {
    if (window().isChecked(kScopeButtons[scope])) options_.blockScope = scope;
  }
}

}  // namespace kiv
