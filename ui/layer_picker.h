#pragma once
// The picker of a layer to create: its name, colour, linetype, states, lineweight and transparency.

#include <string>
#include <vector>

#include "ui/select_base.h"

namespace kiv {

class CSelLay : public CSelBase {
 public:
  CSelLay(PickerOwner& owner, PickHandOver& pick, PickerRequest request);

  void pickCompleted() override;

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onEdited(int id) override;
  void confirm() override;
  int pickItem() const override;

 private:
  void fillLists();
  // The nine values in their order; those behind the last stay as they are in the dialog.
  void show(const std::vector<std::wstring>& values);
  void showState(int button);
  void chooseLineweight(const std::wstring& text);
  void chooseColor();
  bool isNameValid(const std::wstring& name) const;
  std::vector<std::wstring> values() const;

  NodeContent content_;
};

}  // namespace kiv
