#include "platform/questions.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

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

int ask(HWND owner, const MessageQuestion& question) {
  return MessageBoxW(owner, question.text.c_str(), question.caption.c_str(),
                     styleOf(question) | (owner ? 0u : MB_TASKMODAL));
}

}  // namespace

Answer showMessage(NativeWindow owner, const MessageQuestion& question) {
  const auto window = static_cast<HWND>(owner);
  const auto attendance = win32::attended(window, question);
  const int pressed = win32::somebodyAnswers() ? ask(window, question) : 0;
  if (question.buttons == Buttons::kOk) return Answer::kOk;
  return pressed == IDYES ? Answer::kYes : Answer::kNo;
}

}  // namespace kiv
