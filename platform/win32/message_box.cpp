#include "platform/dialog_script.h"
#include "platform/questions.h"
#include "platform/win32/people.h"
#include "platform/win32/question_hand.h"

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

// The system may give the only button of a box the id of cancel.
int okButton(HWND box) { return GetDlgItem(box, IDOK) ? IDOK : IDCANCEL; }

int buttonOf(Answer answer, const MessageQuestion& question, HWND box) {
  if (question.buttons == Buttons::kOk) return okButton(box);
  return answer == Answer::kYes ? IDYES : IDNO;
}

bool isShown(HWND box, int id) {
  const HWND control = GetDlgItem(box, id);
  return control && IsWindowVisible(control);
}

// Where the focus is on a button, that one is the default, whatever the dialog's default id.
bool isDefault(HWND box, int id) {
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(GetDlgItem(box, id), GWL_STYLE));
  return (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
}

bool hasIcon(HWND box) {
  for (HWND part = GetWindow(box, GW_CHILD); part; part = GetWindow(part, GW_HWNDNEXT)) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(part, GWL_STYLE));
    if (win32::isOfClass(part, L"Static") && (style & SS_TYPEMASK) == SS_ICON &&
        SendMessageW(part, STM_GETICON, 0, 0)) {
      return true;
    }
  }
  return false;
}

// What the box on the screen shows otherwise than the question says; empty: nothing.
std::wstring differences(HWND box, const MessageQuestion& question) {
  const bool choice = question.buttons == Buttons::kYesNo;
  const int wanted = !choice ? okButton(box) : question.noIsDefault ? IDNO : IDYES;
  std::wstring found;
  if (win32::windowText(box) != question.caption) found += L" caption";
  if (isShown(box, IDYES) != choice || isShown(box, IDNO) != choice) found += L" buttons";
  if (!isDefault(box, wanted)) found += L" default";
  if (hasIcon(box) != (question.icon != Icon::kNone)) found += L" icon";
  return found;
}

// Presses the button of the box that asks what was to be asked.
class MessageHand final : public win32::QuestionHand {
 public:
  MessageHand(HWND owner, const MessageQuestion& question, Answer answer)
      : owner_(owner), question_(question), answer_(answer) {
    begin();
  }

 private:
  static bool asks(HWND box, void* question) {
    const HWND text = GetDlgItem(box, kTextControl);
    return text && win32::windowText(text) == static_cast<const MessageQuestion*>(question)->text;
  }

  static bool isOwned(HWND box, void* owner) { return GetWindow(box, GW_OWNER) == owner; }

  HWND box() { return win32::findOwnWindow(L"#32770", asks, const_cast<MessageQuestion*>(&question_)); }

  bool step() override {
    const HWND shown = box();
    if (!shown) return false;
    const std::wstring different = looked_ ? L"" : differences(shown, question_);
    looked_ = true;
    if (!different.empty()) report(name() + L" is shown with another" + different);
    return win32::pressButton(shown, buttonOf(answer_, question_, shown));
  }

  void giveUp() override {
    const HWND shown = win32::findOwnWindow(L"#32770", isOwned, owner_);
    EndDialog(shown, buttonOf(Answer::kNo, question_, shown));
  }

  std::wstring name() const override { return L"the message \"" + question_.text + L"\""; }

  HWND owner_;
  const MessageQuestion& question_;
  Answer answer_;
  bool looked_ = false;
};

int ask(HWND owner, const MessageQuestion& question) {
  return MessageBoxW(owner, question.text.c_str(), question.caption.c_str(),
                     styleOf(question) | (owner ? 0u : MB_TASKMODAL));
}

}  // namespace

Answer showMessage(NativeWindow owner, const MessageQuestion& question) {
  const auto window = static_cast<HWND>(owner);
  int pressed = 0;
  if (DialogScript* script = dialogScript()) {
    MessageHand hand(window, question, script->answer(question));
    pressed = ask(window, question);
  } else if (win32::somebodyAnswers()) {
    pressed = ask(window, question);
  }
  if (question.buttons == Buttons::kOk) return Answer::kOk;
  return pressed == IDYES ? Answer::kYes : Answer::kNo;
}

}  // namespace kiv
