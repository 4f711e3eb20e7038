#pragma once
// Presses the button of the message box that asks what was to be asked.

#include "platform/questions.h"
#include "platform/win32/question_hand.h"

namespace kiv::win32 {

class MessageHand final : public QuestionHand {
 public:
  // The question must outlive the hand.
  MessageHand(HWND owner, const MessageQuestion& question, Answer answer);

 private:
  bool step() override;
  void giveUp() override;
  std::wstring name() const override;

  HWND owner_;
  const MessageQuestion& question_;
  Answer answer_;
  bool looked_ = false;
};

}  // namespace kiv::win32
