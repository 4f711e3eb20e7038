// The main dialog's files: the specification that is loaded and saved, the default one, the work file.

#include <utility>

#include "base/files.h"
#include "platform/host_output.h"
#include "spec/cvt_reader.h"
#include "ui/file_browser.h"
#include "ui/main_dialog.h"
#include "ui/messages.h"
#include "ui/resource.h"

namespace kiv {
namespace {

constexpr const wchar_t* kNotCreated = L"ファイルの作成に失敗しました";

// Whoever reads the command line is told too, as in a run without dialogs.
void printMessage(const CvtWriteResult& result) {
  if (result.outcome != CvtWriteOutcome::kLayerMissing && !result.message.empty())
    printOnCommandLine(result.message);
}

bool isRefused(const CvtWriteResult& result) {
  return result.outcome == CvtWriteOutcome::kNotCreated || result.outcome == CvtWriteOutcome::kUnwritable;
}

// Opens with the name and remark that the specification has now, and closes when it is written or must be
// changed first.
class SaveUnder : public CSaveDlg {
 public:
  SaveUnder(const std::wstring& folder, const Specification& specification)
      : CSaveDlg(folder), specification_(specification) {}

  const CvtWriteResult& result() const { return result_; }

 protected:
  void onInit() override {
    CSaveDlg::onInit();
    window().setText(IDC_SAVE_NAME, specification_.fileName);
    window().setText(IDC_SAVE_REMARK, specification_.remark);
    onEdited(IDC_SAVE_NAME);
  }
  bool accepts() override {
    specification_.remark = remark();
    result_ = writeSpecification(specification_, base::pathFromText(folder() + name()));
    printMessage(result_);
    if (!isRefused(result_)) return true;
    tellRefusal(kNotCreated, result_.failure);
    return false;
  }

 private:
  Specification specification_;
  CvtWriteResult result_;
};

}  // namespace

bool CCnvDlg::onFileCommand(int command) {
  switch (command) {
    case IDC_MAIN_LOAD:
      loadChosen();
      return true;
    case IDC_MAIN_SAVE:
      saveAs();
      return true;
    case IDC_MAIN_DEFAULT:
      isDefault_ = window().isChecked(IDC_MAIN_DEFAULT);
      return true;
    default:
      return false;
  }
}

// `asDefault`: nobody chose the name, so one without a file is not shown, and what is loaded stays the
// default.
void CCnvDlg::load(const std::wstring& name, bool asDefault) {
  TreeLoad loaded = loadSpecification(base::pathFromText(folder_), name);
  specification_ = std::move(loaded.specification);
  if (asDefault && !loaded.isRead) specification_.fileName.clear();
  tree().rebuild();
  showFile();
  // What is not a specification cannot be the one to start with.
  isDefault_ = loaded.isSpecification && (asDefault || isDefault_);
  window().check(IDC_MAIN_DEFAULT, isDefault_);
  window().enable(IDC_MAIN_DEFAULT, loaded.isSpecification);
}

void CCnvDlg::loadChosen() {
  CReadDlg browser(folder_);
  if (browser.runModal(window().native()) != IDOK || !hasWindow()) return;
  load(browser.name(), false);
}

void CCnvDlg::saveAs() {
  SaveUnder browser(folder_, specification_);
  const bool confirmed = browser.runModal(window().native()) == IDOK;
  if (!hasWindow()) return;
  if (confirmed) {
    specification_.fileName = browser.name();
    specification_.remark = browser.remark();
    showFile();
    if (!tellMissingLayer(browser.result())) window().enable(IDC_MAIN_DEFAULT, true);
  }
  writeDefaultName();
}

void CCnvDlg::showFile() {
  window().setText(IDC_MAIN_FILE_NAME, specification_.fileName);
  window().setText(IDC_MAIN_REMARK, specification_.remark);
}

// Selects the setting that is to be given a layer. False when there is none.
bool CCnvDlg::tellMissingLayer(const CvtWriteResult& result) {
  if (result.outcome != CvtWriteOutcome::kLayerMissing) return false;
  tree().select(Node::of(kLayerSettingSection, result.setting));
  tell(result.message);
  return true;
}

// A failure leaves the person with the specification that was the default before.
void CCnvDlg::writeDefaultName() {
  const bool named = isDefault_ && !specification_.fileName.empty();
  static_cast<void>(
      writeDefaultSpecificationName(folder_, named ? folder_ + specification_.fileName : std::wstring()));
}

bool CCnvDlg::writeWorkFile() {
  Specification work = specification_;
  work.remark = kWorkFileRemark;
  const CvtWriteResult result = writeSpecification(work, base::pathFromText(folder_ + kWorkFileName));
  if (tellMissingLayer(result)) return false;
  printMessage(result);
  if (!isRefused(result)) return true;
  tell(refusalText(kNotCreated, result.failure));
  return false;
}

}  // namespace kiv
