#pragma once
// The access keys of a dialog: the letters that do something with Alt, and the hints that show them at the
// controls while Alt is held down. Captions show none.

#include <vector>

#include "platform/win32/system.h"

namespace kiv::win32 {

class AccessKeys {
 public:
  // Those that the resources have under the id of the dialog.
  explicit AccessKeys(int dialog);
  ~AccessKeys();
  AccessKeys(const AccessKeys&) = delete;
  AccessKeys& operator=(const AccessKeys&) = delete;

  // A key message for the dialog or a control of it. True: it was an access key, and done with; the dialog
  // got a WM_COMMAND with this code, and may have gone.
  bool take(HWND dialog, MSG& message);
  static constexpr WORD kCode = 1;

  void hideHints();

 private:
  void showHints(HWND dialog);

  HACCEL table_;
  std::vector<ACCEL> keys_;
  std::vector<HWND> hints_;  // the dialog owns them: they go with it
};

}  // namespace kiv::win32
