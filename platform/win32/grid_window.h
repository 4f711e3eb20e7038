#pragma once
// The window of a grid. The current row's text always stands in an edit field over its cell, so that
// whatever types text (keyboard, input methods for Japanese, the clipboard) finds an ordinary field.

#include "platform/win32/grid_editor.h"
#include "platform/win32/grid_model.h"
#include "platform/win32/system.h"

namespace kiv::win32 {

class GridWindow {
 public:
  explicit GridWindow(HWND handle);

  // Null for a window that is no grid.
  static GridWindow* of(HWND handle);
  LRESULT take(UINT message, WPARAM first, LPARAM second);

  const GridRows& rows() const { return rows_; }
  HWND editor() const { return editor_.handle(); }

  // By the program: nobody is told.
  void setTitle(std::wstring_view title);
  void setRowCount(int count);
  void setText(int row, std::wstring_view text);
  void goTo(int row);

 private:
  void measure();
  void arrange();
  void scrollTo(int topRow);
  void showCurrentRow();
  void updateScrollBar();
  void paint();

  // By the person: the dialog is told.
  void choose(int row);
  bool takeKey(WPARAM key);
  int rowByKey(WPARAM key) const;  // -1: the key goes nowhere
  void takeWheel(int turned);
  void takeScroll(WORD request);
  void takeClick(LPARAM place);
  void takeFocus();
  RECT shownCell(int row);

  HWND handle_;
  HFONT font_;
  std::wstring title_;
  GridRows rows_;
  GridLayout layout_;
  GridEditor editor_;
  int wheel_ = 0;
};

}  // namespace kiv::win32
