#pragma once
// The dialog script's part in modal dialogs.

#include "platform/win32/system.h"

namespace kiv::win32 {

class Window;

inline constexpr UINT_PTR kActTimer = 1;

// While one of these lives, the script is asked to act in the modal dialog whenever nothing else happens.
class Acting {
 public:
  explicit Acting(HWND dialog);
  ~Acting();
  Acting(const Acting&) = delete;
  Acting& operator=(const Acting&) = delete;

 private:
  HWND dialog_;
};

// At the timer's message. Nothing while the script acts already or a question is waiting for its answer. A
// dialog in which the script has acted very often without end is abandoned, so that a session never hangs.
void letScriptAct(Window& window);

}  // namespace kiv::win32
