#pragma once
// The dialog in which a specification gets the name and remark that it is saved under.

#include "ui/file_browser.h"

namespace kiv {

// runModal() gives IDOK (1) when name() and remark() are to be saved under; the person has agreed to
// overwrite a file of that name. What writes it when it is accepted keeps the dialog open where it cannot.
class CSaveDlg : public FileBrowser {
 public:
  // With its trailing separator.
  explicit CSaveDlg(std::wstring folder);

 protected:
  void onSelected(int id) override;
  void onEdited(int id) override;
  void onCommand(int command) override;
  // Called with name() and remark() as they are confirmed; false: the dialog stays open.
  virtual bool accepts() { return true; }

 private:
  void save();
};

}  // namespace kiv
