#pragma once
// Chooses an item of an open menu by the keys that a person would use.

#include "platform/win32/question_hand.h"

namespace kiv::win32 {

class MenuHand final : public QuestionHand {
 public:
  // `item`: 0 leaves the menu without a choice.
  MenuHand(HWND owner, HMENU menu, int item);

 private:
  bool step() override;
  void giveUp() override;
  std::wstring name() const override;

  HWND owner_;
  HMENU menu_;
  int item_;
};

}  // namespace kiv::win32
