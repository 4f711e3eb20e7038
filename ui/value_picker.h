#pragma once
// The picker of one plain value: chosen from a list, typed, or taken from an entity of the drawing.

#include <string>

#include "ui/select_base.h"

namespace kiv {

class CSelDlg : public CSelBase {
 public:
  // Of a kind of items. The section of the layer settings withholds the by-layer and by-block choices.
  CSelDlg(PickerOwner& owner, PickHandOver& pick, PickerRequest request);

  void pickCompleted() override;

 protected:
  void onInit() override;
  void onEdited(int id) override;
  void onDoubleClicked(int id) override;
  void confirm() override;
  int pickItem() const override;

 private:
  void fillChoices();

  PickerRequest request_;
};

}  // namespace kiv
