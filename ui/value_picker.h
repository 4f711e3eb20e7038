#pragma once
// The picker of one plain value: chosen from a list, typed, or taken from an entity of the drawing.

#include <string>

#include "ui/select_base.h"

namespace kiv {

inline constexpr int kConditionSide = 1;  // any other side is a conversion result

class CSelDlg : public CSelBase {
 public:
  // `contextCode` is the section under which the value will stand; that of the layer settings withholds the
  // by-layer and by-block choices. `kind` 1 to 16. `present` holds the present value, after the name of a
  // dimension variable; none: something new.
  CSelDlg(PickerOwner& owner, int contextCode, int kind, int side, std::vector<std::wstring> present,
          PickHandOver& pick);

  // The folder of text search lists, with its trailing separator. Before create().
  void setListFolder(std::wstring folder) { listFolder_ = std::move(folder); }

  void pickCompleted() override;

 protected:
  void onInit() override;
  void onEdited(int id) override;
  void onDoubleClicked(int id) override;
  void confirm() override;
  int pickItem() const override { return kind_; }

 private:
  void fillChoices();
  void showValue(const std::wstring& value);

  int contextCode_;
  int kind_;
  int side_;
  std::vector<std::wstring> present_;
  std::wstring listFolder_;
};

}  // namespace kiv
