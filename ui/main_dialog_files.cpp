// The main dialog's files: the specification that is loaded and saved, the default one, the work file.

#include <utility>

#include "base/files.h"
#include "platform/host_output.h"
#include "spec/cvt_tree_reader.h"
#include "spec/cvt_writer.h"
#include "ui/main_dialog.h"
#include "ui/read_dialog.h"
#include "ui/resource.h"
#include "ui/save_dialog.h"

namespace kiv {
namespace {

// Opens with the name and remark that the specification has now.
class SaveUnder : public CSaveDlg {
 public:
  SaveUnder(const std::wstring& folder, const Specification& specification)
      : CSaveDlg(folder), name_(specification.fileName), remark_(specification.remark) {}

 protected:
  void onInit() override {
    CSaveDlg::onInit();
    window().setText(IDC_SAVE_NAME, name_);
    window().setText(IDC_SAVE_REMARK, remark_);
    onEdited(IDC_SAVE_NAME);
  }

 private:
  std::wstring name_, remark_;
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
  if (asDefault && !loaded.isRead) specification_.fileName.clear();
    specification_.fileName = browser.name();
    specification_.remark = browser.remark();
    showFile();
    if (write(specification_, specification_.fileName)) window().enable(IDC_MAIN_DEFAULT, true);
  }
  writeDefaultName();
}

void CCnvDlg::showFile() {
  window().setText(IDC_MAIN_FILE_NAME, specification_.fileName);
  window().setText(IDC_MAIN_REMARK, specification_.remark);
}

bool CCnvDlg::write(const Specification& specification, const std::wstring& name) {
  const CvtWriteResult result = writeSpecification(specification, base::pathFromText(folder_ + name));
  if (result.outcome == CvtWriteOutcome::kLayerMissing) {
    tree().select(Node::of(kLayerSettingSection, result.setting));
    tell(result.message);
    return false;
  }
  if (!result.message.empty()) printOnCommandLine(result.message);
  return result.ok();
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
  return write(work, kWorkFileName);
}

}  // namespace kiv
