#include "platform/win32/message_hand.h"

namespace kiv::win32 {
namespace {

constexpr int kTextControl = 0xFFFF;

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
    if (isOfClass(part, L"Static") && (style & SS_TYPEMASK) == SS_ICON &&
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
  if (windowText(box) != question.caption) found += L" caption";
  if (isShown(box, IDYES) != choice || isShown(box, IDNO) != choice) found += L" buttons";
  if (!isDefault(box, wanted)) found += L" default";
  if (hasIcon(box) != (question.icon != Icon::kNone)) found += L" icon";
  return found;
}

bool asks(HWND box, void* question) {
  const HWND text = GetDlgItem(box, kTextControl);
  return text && windowText(text) == static_cast<const MessageQuestion*>(question)->text;
}

bool isOwned(HWND box, void* owner) { return GetWindow(box, GW_OWNER) == owner; }

}  // namespace

MessageHand::MessageHand(HWND owner, const MessageQuestion& question, Answer answer)
    : owner_(owner), question_(question), answer_(answer) {
  begin();
}

bool MessageHand::step() {
  const HWND shown = findOwnWindow(L"#32770", asks, const_cast<MessageQuestion*>(&question_));
  if (!shown) return false;
  const std::wstring different = looked_ ? L"" : differences(shown, question_);
  looked_ = true;
  if (!different.empty()) report(name() + L" is shown with another" + different);
  return pressButton(shown, buttonOf(answer_, question_, shown));
}

void MessageHand::giveUp() {
  const HWND shown = findOwnWindow(L"#32770", isOwned, owner_);
  EndDialog(shown, buttonOf(Answer::kNo, question_, shown));
}

std::wstring MessageHand::name() const { return L"the message \"" + question_.text + L"\""; }

}  // namespace kiv::win32
