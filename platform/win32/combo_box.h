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

// The drop-down list closes at the first click of a double click. To be called after an entry was chosen by
// the mouse; the second click, wherever it goes, is taken by the next function.
void awaitSecondClick(HWND comboBox);

// Of every message of the thread. True for the second click of a double click on an entry: the dialog gets
// CBN_DBLCLK, and the message is done with.
bool takeSecondClick(const MSG& message);

}  // namespace kiv::win32
