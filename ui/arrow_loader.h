#pragma once
// The picker of an arrow block to load: a drawing file that holds it, or the name of a built-in arrow.

#include <string>

#include "ui/select_base.h"

namespace kiv {

// Of the file that was chosen last, with its trailing separator; empty: none yet. Kept as long as the module
// lives.
std::wstring& lastArrowFolder();

class CSelArw : public CSelBase {
 public:
  CSelArw(PickerOwner& owner, PickHandOver& pick, PickerRequest request);

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onSelected(int id) override;
  void onDoubleClicked(int id) override;
  void confirm() override;
  int pickItem() const override { return 0; }

 private:
  void showPresent();
  void showFolder(const std::wstring& folder);
  void listFiles();
  void selectFile(const std::wstring& name);
  void browse();
  void refuse(const std::wstring& message);
  std::wstring selectedFile();
  bool handOver(const std::wstring& arrow);

  NodeContent content_;
  std::wstring folder_;  // with its trailing separator
  std::wstring listed_;  // the folder whose files are in the list
};

}  // namespace kiv
