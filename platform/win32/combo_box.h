#pragma once
// A combo box of the system.

#include "platform/dialog_window.h"
#include "platform/win32/control.h"

namespace kiv::win32 {

class SystemComboBox final : public ComboBox, public Control {
 public:
  using Control::Control;

  void clear() override;
  void add(std::wstring_view entry) override;
  std::vector<std::wstring> entries() const override;
  int selected() const override;
  void select(int entry) override;
  void putCaretAtEnd() override;

  // The field and its list, as windows of their own.
  static HWND fieldOf(HWND comboBox);
  static HWND listOf(HWND comboBox);
};

// The drop-down list closes at the first click of a double click. After an entry was chosen by the mouse,
// this waits for the second click and then sends CBN_DBLCLK to the dialog.
void awaitSecondClick(HWND comboBox);

}  // namespace kiv::win32
