#pragma once
// Who answers in this backend's windows: a person, or an attendant that works them for the dialog script.

#include <windows.h>

// Needs what windows.h declares.
#include <commdlg.h>

#include <memory>
#include <utility>

#include "platform/questions.h"

namespace kiv::win32 {

// Lasts as long as what is attended is open.
class Attendance {
 public:
  virtual ~Attendance() = default;
  Attendance(const Attendance&) = delete;
  Attendance& operator=(const Attendance&) = delete;

 protected:
  Attendance() = default;
};

// The module has none; the dialog hands (dialog_hands) bring one along.
class Attendant {
 public:
  virtual ~Attendant() = default;
  // Each is called just before the window opens, and the result goes when it has closed.
  virtual std::unique_ptr<Attendance> attend(HWND owner, const MessageQuestion& question) = 0;
  virtual std::unique_ptr<Attendance> attend(OPENFILENAMEW& chooser, const FileQuestion& question) = 0;
  virtual std::unique_ptr<Attendance> attend(OPENFILENAMEW& chooser, const FilesQuestion& question) = 0;
  virtual std::unique_ptr<Attendance> attend(const FolderQuestion& question) = 0;
  virtual std::unique_ptr<Attendance> attend(HWND owner, HMENU shown, const Menu& menu) = 0;
  virtual std::unique_ptr<Attendance> attend(HWND modalDialog) = 0;
};

// Null: a person is there, or nobody. The attendant must outlive its use.
void setAttendant(Attendant* attendant);
Attendant* attendant();

// Null when nobody attends.
template <class... Opened>
std::unique_ptr<Attendance> attended(Opened&&... opened) {
  Attendant* const present = attendant();
  return present ? present->attend(std::forward<Opened>(opened)...) : nullptr;
}

// Whether somebody answers: a person, who has the host's window, or an attendant. Otherwise a question would
// wait for ever.
bool somebodyAnswers();

}  // namespace kiv::win32
