#pragma once
// The field over the current cell of a grid.

#include "platform/dialog_window.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

// The field has two states. Ready: the whole text is selected, keys that move go to other rows, typing
// replaces the text. Editing: such keys move the caret, as far as they make sense in one line.
class GridEditor {
 public:
  explicit GridEditor(HWND grid);

  HWND handle() const { return field_; }
  bool isEditing() const { return editing_; }

  // Shows a cell's text in the ready state; it is what Escape brings back.
  void open(std::wstring_view text);
  void beginEditing();  // with the caret at the end
  void noteChange();    // the person typed
  void noteCaretMove() { editing_ = true; }
  std::wstring text() const { return windowText(field_); }
  // Brings back what open() was given. False when that is what stands there.
  bool cancel();
  // Takes the text as the cell's; ready again.
  void commit();

  // What the field announces is its own doing, not the person's.
  bool isQuiet() const { return quiet_; }

  void setFont(HFONT font, int padding);
  void place(const Rect& cell);  // an empty rectangle hides it

 private:
  void show(std::wstring_view text);

  HWND field_;
  std::wstring original_;
  bool editing_ = false;
  bool quiet_ = false;
};

}  // namespace kiv::win32
