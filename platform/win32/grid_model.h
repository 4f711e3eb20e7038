#pragma once
// What a grid holds, and where its parts are.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialog_window.h"

namespace kiv::win32 {

class GridRows {
 public:
  int count() const { return static_cast<int>(texts_.size()); }
  bool has(int row) const { return row >= 0 && row < count(); }
  // The current row is moved to the last one that is left; -1 when there is none, 0 when there is one again.
  void resize(int count) {
    texts_.resize(static_cast<std::size_t>(std::max(count, 0)));
    moveTo(std::max(current_, 0));
  }

  std::wstring text(int row) const { return has(row) ? texts_[static_cast<std::size_t>(row)] : L""; }
  // False when there is no such row or its text is the same already.
  bool setText(int row, std::wstring_view text) {
    if (!has(row) || texts_[static_cast<std::size_t>(row)] == text) return false;
    texts_[static_cast<std::size_t>(row)] = text;
    return true;
  }

  int current() const { return current_; }
  // The nearest row that exists. False when it is the current one already.
  bool moveTo(int row) {
    const int target = std::clamp(row, std::min(0, count() - 1), count() - 1);
    if (target == current_) return false;
    current_ = target;
    return true;
  }

 private:
  std::vector<std::wstring> texts_;
  int current_ = -1;
};

// In pixels of the inner area.
struct GridLayout {
  int width = 0, height = 0;  // the inner area
  int rowHeight = 1;          // of the header too
  int numberWidth = 0;        // of the column of row numbers
  int padding = 0;            // before a cell's text
  int leading = 0;            // between the texts of two rows
  int topRow = 0;             // the first row under the header

  int top(int row) const { return (row - topRow + 1) * rowHeight; }
  // A row above the first one shown is out of the area altogether, not under the header.
  Rect cell(int row) const {
    const int at = row < topRow ? -2 * rowHeight : top(row);
    return {numberWidth, at, width, at + rowHeight};
  }
  Rect number(int row) const { return {0, top(row), numberWidth, top(row) + rowHeight}; }
  Rect header() const { return {numberWidth, 0, width, rowHeight}; }
  Rect corner() const { return {0, 0, numberWidth, rowHeight}; }

  // Of the field over a row: its text stands where that of the row would, and the lines at the right and the
  // bottom of the cell stay.
  Rect editor(int row) const {
    const Rect under = cell(row);
    return {under.left, under.top + leading / 2, under.right - 1, under.bottom - 1};
  }

  // Rows that can be seen whole; at least one.
  int page() const { return std::max(1, height / rowHeight - 1); }
  // Of so many rows: the nearest to `wanted` that can be the first one shown.
  int topFor(int wanted, int rows) const { return std::clamp(wanted, 0, std::max(0, rows - page())); }
  // The first row shown when nothing but what `row` needs is scrolled.
  int topShowing(int row) const {
    if (row < topRow) return row;
    return std::max(topRow, row - page() + 1);
  }
  // The row at a height, which may be past the last one; -1 in the header.
  int rowAt(int y) const { return y < rowHeight ? -1 : topRow + y / rowHeight - 1; }
};

}  // namespace kiv::win32
