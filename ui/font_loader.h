#pragma once
// The picker of a text style to set up: its name, and a TrueType font of the system or a shape font of the
// support folders, with a big font or without.

#include <string>
#include <vector>

#include "platform/font_families.h"
#include "ui/font_files.h"
#include "ui/select_base.h"

namespace kiv {

class CSelFont : public CSelBase {
 public:
  CSelFont(PickerOwner& owner, PickHandOver& pick, PickerRequest request);

  void pickCompleted() override;

 protected:
  void onInit() override;
  void onCommand(int command) override;
  void onEdited(int id) override;
  void onSelected(int id) override;
  void confirm() override;
  int pickItem() const override;

 private:
  enum class Mode { kTrueType, kShapes };

  void switchTo(Mode mode);
  void fillLists();
  // Kept while the other mode has no use for it.
  void useBigFont(bool uses);
  // Style, font, big font, as far as they are there.
  void showValues(const std::vector<std::wstring>& values);
  void showStyleOfFace();

  NodeContent content_;
  std::vector<FontFamily> families_;
  ShapeFonts shapeFonts_;
  Mode mode_ = Mode::kTrueType;
  bool usesBigFont_ = false;
};

}  // namespace kiv
