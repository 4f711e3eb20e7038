#pragma once
// The dialog script's part in modal dialogs.

#include "platform/win32/people.h"

namespace kiv::win32 {

// While one of these lives, the script is asked to act in the modal dialog whenever nothing else happens: not
// while it acts already or a question is waiting for its answer. A dialog in which the script has acted very
// often without end is abandoned, so that a session never hangs.
class Acting final : public Attendance {
 public:
  explicit Acting(HWND dialog);
  ~Acting() override;

 private:
  HWND dialog_;
};

}  // namespace kiv::win32
