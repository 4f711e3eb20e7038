#pragma once
// The dialog in which the specification to load is chosen.

#include "ui/file_browser.h"

namespace kiv {

// runModal() gives IDOK (1) when name() and remark() are those of the chosen file.
class CReadDlg : public FileBrowser {
 public:
  // With its trailing separator.
  explicit CReadDlg(std::wstring folder);

 protected:
  void onSelected(int id) override;
  void onDoubleClicked(int id) override;
  void onCommand(int command) override;
};

}  // namespace kiv
