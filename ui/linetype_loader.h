#pragma once
// The picker of a linetype to load: a linetype file of the support folders, and one of its linetypes.

#include <string>

#include "ui/select_base.h"

namespace kiv {

class CSelLine : public CSelBase {
 public:
  CSelLine(PickerOwner& owner, PickHandOver& pick, PickerRequest request);

  void pickCompleted() override;

 protected:
  void onInit() override;
  void onEdited(int id) override;
  void onSelected(int id) override;
  void onDoubleClicked(int id) override;
  void confirm() override;
  int pickItem() const override;

 private:
  void showFile(const std::wstring& path);
  void listLinetypes();
  bool selectLinetype(const std::wstring& name);
  // In the listed file, else in the first of the others that has it.
  void findLinetype(const std::wstring& name);

  NodeContent content_;
  std::wstring listed_;  // the file whose linetypes are in the list
};

}  // namespace kiv
