#pragma once
// The dialog in which a specification gets the name and remark that it is saved under.

#include "ui/file_browser.h"

namespace kiv {

// runModal() gives IDOK (1) when name() and remark() are to be saved under; the person has agreed to
// overwrite a file of that name, and nothing is written yet.
class CSaveDlg : public FileBrowser {
 public:
  // With its trailing separator.
  explicit CSaveDlg(std::wstring folder);

 protected:
  void onSelected(int id) override;
  void onEdited(int id) override;
  void onCommand(int command) override;

 private:
  void save();
};

}  // namespace kiv
