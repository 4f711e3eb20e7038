#pragma once
// The grid of texts as a dialog sees it; its window is in grid_window.h.

#include "platform/dialog_window.h"
#include "platform/win32/control.h"

namespace kiv::win32 {

class GridWindow;

inline constexpr const wchar_t* kGridClass = L"KivGrid";  // as in the resource script
// Again and again without harm. A class that outlives the module leads into code that is not there any more.
void registerGridClass();
void unregisterGridClass();

// To its parent, as a WM_NOTIFY code: the person went to another row.
inline constexpr UINT kGridRowChosen = 1;

// Messages that a grid takes. The place (second parameter, as of a mouse message) whose row is chosen, as
// with a click; the rectangle of the current row's text (second parameter: RECT*).
inline constexpr UINT kGridChooseAt = WM_USER + 1;
inline constexpr UINT kGridRowRect = WM_USER + 2;
// The rectangle of any row's text, scrolled to be seen; first parameter: the row. 0 when there is none.
inline constexpr UINT kGridShowRow = WM_USER + 3;

class Grid final : public TextGrid, public Control {
 public:
  using Control::Control;

  void setTitle(std::wstring_view title) override;
  int rowCount() const override;
  void setRowCount(int rows) override;
  std::wstring text(int row) const override;
  void setText(int row, std::wstring_view text) override;
  int currentRow() const override;
  void setCurrentRow(int row) override;

 private:
  GridWindow* window() const;
};

}  // namespace kiv::win32
