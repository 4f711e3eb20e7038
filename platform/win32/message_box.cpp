#include "platform/dialog_script.h"
#include "platform/questions.h"
#include "platform/win32/hand.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

constexpr int kTextControl = 0xFFFF;

UINT styleOf(const MessageQuestion& question) {
  UINT style = question.buttons == Buttons::kYesNo ? MB_YESNO : MB_OK;
  if (question.buttons == Buttons::kYesNo && question.noIsDefault) style |= MB_DEFBUTTON2;
  switch (question.icon) {
    case Icon::kInformation:
      return style | MB_ICONINFORMATION;
    case Icon::kQuestion:
      return style | MB_ICONQUESTION;
    case Icon::kWarning:
      return style | MB_ICONWARNING;
    case Icon::kStop:
      return style | MB_ICONSTOP;
    case Icon::kNone:
      break;
  }
  return style;
}

int buttonOf(Answer answer, const MessageQuestion& question) {
  if (question.buttons == Buttons::kOk) return IDOK;
  return answer == Answer::kYes ? IDYES : IDNO;
}

// Presses the button of the box on the screen, once it is seen to ask what was to be asked.
class MessageHand final : public win32::Hand {
 public:
  MessageHand(const MessageQuestion& question, Answer answer) : question_(question), answer_(answer) {
    begin();
  }

 private:
  static bool asks(HWND box, void* question) {
    const HWND text = GetDlgItem(box, kTextControl);
    return text && win32::windowText(text) == static_cast<const MessageQuestion*>(question)->text;
  }

  HWND box() { return win32::findOwnWindow(L"#32770", asks, const_cast<MessageQuestion*>(&question_)); }

  bool step() override {
    const HWND shown = box();
    return shown && win32::windowText(shown) == question_.caption &&
           win32::pressButton(shown, buttonOf(answer_, question_));
  }

  void giveUp() override {
    const HWND shown = GetLastActivePopup(GetActiveWindow());
    EndDialog(shown, buttonOf(Answer::kNo, question_));
  }

  std::wstring name() const override { return L"the message \"" + question_.text + L"\""; }

  const MessageQuestion& question_;
  Answer answer_;
};

int ask(HWND owner, const MessageQuestion& question) {
  return MessageBoxW(owner, question.text.c_str(), question.caption.c_str(),
                     styleOf(question) | (owner ? 0u : MB_TASKMODAL));
}

}  // namespace

Answer showMessage(NativeWindow owner, const MessageQuestion& question) {
  int pressed = 0;
  if (DialogScript* script = dialogScript()) {
    MessageHand hand(question, script->answer(question));
    pressed = ask(static_cast<HWND>(owner), question);
  } else if (win32::somebodyAnswers()) {
    pressed = ask(static_cast<HWND>(owner), question);
  }
  if (question.buttons == Buttons::kOk) return Answer::kOk;
  return pressed == IDYES ? Answer::kYes : Answer::kNo;
}

}  // namespace kiv
