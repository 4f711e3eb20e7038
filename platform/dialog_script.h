#pragma once
// A person's part in a session without the person: whoever answers questions and acts in modal dialogs.
// Tests and scripted sessions set one. With real windows the question is shown, and hands, which only
// programs with the dialog hands (dialog_hands) have, give the answer to the shown window; without windows
// the answer is all there is.

#include "platform/dialog.h"
#include "platform/questions.h"

namespace kiv {

class DialogScript {
 public:
  virtual ~DialogScript() = default;
  virtual Answer answer(const MessageQuestion& question) = 0;
  virtual std::optional<std::wstring> answer(const FileQuestion& question) = 0;  // empty: cancel
  virtual std::vector<std::wstring> answer(const FilesQuestion& question) = 0;  // of one folder; none: cancel
  virtual std::optional<std::wstring> answer(const FolderQuestion& question) = 0;  // empty: cancel
  virtual int answer(const Menu& menu) = 0;  // an enabled item's id; 0: leave the menu
  // Called again and again while a modal dialog is open; must end it sooner or later.
  virtual void act(DialogWindow& modal) = 0;
  // A shown window could not be given its answer, or differs from the question.
  virtual void failed(const std::wstring& /*reason*/) {}
};

// The script must outlive its use. Null: a person is there, or nobody where there are no windows.
void setDialogScript(DialogScript* script);
DialogScript* dialogScript();

}  // namespace kiv
