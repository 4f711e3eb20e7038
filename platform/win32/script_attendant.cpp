// The dialog script with real windows: a hand for each window that opens gives it the script's answer.

#include "platform/dialog_script.h"
#include "platform/win32/acting.h"
#include "platform/win32/file_hand.h"
#include "platform/win32/folder_hand.h"
#include "platform/win32/menu_hand.h"
#include "platform/win32/message_hand.h"
#include "platform/win32/people.h"

namespace kiv {
namespace {

DialogScript* theScript = nullptr;

class ScriptAttendant final : public win32::Attendant {
  using Hand = std::unique_ptr<win32::Attendance>;

  Hand attend(HWND owner, const MessageQuestion& question) override {
    return std::make_unique<win32::MessageHand>(owner, question, theScript->answer(question));
  }
  Hand attend(OPENFILENAMEW& chooser, const FileQuestion& question) override {
    const std::optional<std::wstring> path = theScript->answer(question);
    return std::make_unique<win32::FileHand>(chooser,
                                             path ? std::vector{*path} : std::vector<std::wstring>());
  }
  Hand attend(OPENFILENAMEW& chooser, const FilesQuestion& question) override {
    return std::make_unique<win32::FileHand>(chooser, theScript->answer(question));
  }
  Hand attend(const FolderQuestion& question) override {
    return std::make_unique<win32::FolderHand>(theScript->answer(question));
  }
  Hand attend(HWND owner, HMENU shown, const Menu& menu) override {
    return std::make_unique<win32::MenuHand>(owner, shown, theScript->answer(menu));
  }
  Hand attend(HWND modalDialog) override { return std::make_unique<win32::Acting>(modalDialog); }
};

}  // namespace

void setDialogScript(DialogScript* script) {
  static ScriptAttendant attendant;
  theScript = script;
  win32::setAttendant(script ? &attendant : nullptr);
}

DialogScript* dialogScript() { return theScript; }

}  // namespace kiv
