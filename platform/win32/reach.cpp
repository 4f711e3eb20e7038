#include "platform/win32/reach.h"

namespace kiv::win32 {

Reach::Reach(DialogWindow& dialog)
    : window_(static_cast<Window&>(dialog)), dialog_(window_.handle()), usable_(isUsable(dialog_)) {}

Reach::Reach(DialogWindow& dialog, int id) : Reach(dialog) {
  control_ = GetDlgItem(dialog_, id);
  usable_ = usable_ && control_ && isUsable(control_);
}

void Reach::bringToFront() const {
  handleMessages();
  if (GetActiveWindow() != dialog_) window_.activate();
  handleMessages();
}

}  // namespace kiv::win32
