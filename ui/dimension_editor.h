#pragma once
// The picker of a dimension variable and its value: a free value, or for the arrow variables an arrow of the
// catalogue or a block.

#include <string>
#include <vector>

#include "spec/dimension_catalogue.h"
#include "ui/select_base.h"

namespace kiv {

class CSelDim : public CSelBase {
 public:
  CSelDim(PickerOwner& owner, PickHandOver& pick, PickerRequest request);

  void pickCompleted() override;

 protected:
  void onInit() override;
  void onSelected(int id) override;
  void onDoubleClicked(int id) override;
  void confirm() override;
  int pickItem() const override;
  void askForPick() override;

 private:
  void offer(bool allVariables);
  void listVariables();
  void listArrowsAndBlocks();
  void showPresent();
  void choose(int variable);
  void showValueControls();
  void enableBlock();
  void showBlock(const std::wstring& block);
  bool takeValue();
  bool takeArrow();
  bool isArrowMode() const;
  bool isBlockAsked();  // the chosen arrow is the user's own block

  NodeContent content_;
  std::vector<const DimensionVariable*> offered_;  // as the list and the combo box have them
  int chosen_ = -1;
};

}  // namespace kiv
