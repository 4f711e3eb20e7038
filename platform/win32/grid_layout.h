#pragma once
// Where the parts of a grid are: pixels of its inner area.

#include <windows.h>

#include <algorithm>

namespace kiv::win32 {

struct GridLayout {
  int width = 0, height = 0;  // the inner area
  int rowHeight = 1;          // of the header too
  int numberWidth = 0;        // of the column of row numbers
  int padding = 0;            // before a cell's text
  int topRow = 0;             // the first row under the header

  int top(int row) const { return (row - topRow + 1) * rowHeight; }
  // A row above the first one shown is out of the area altogether, not under the header.
  RECT cell(int row) const {
    const int at = row < topRow ? -2 * rowHeight : top(row);
    return {numberWidth, at, width, at + rowHeight};
  }
  RECT number(int row) const { return {0, top(row), numberWidth, top(row) + rowHeight}; }
  RECT header() const { return {numberWidth, 0, width, rowHeight}; }
  RECT corner() const { return {0, 0, numberWidth, rowHeight}; }

  // Rows that can be seen whole; at least one.
  int page() const { return std::max(1, height / rowHeight - 1); }
  // The row at a height, which may be past the last one; -1 in the header.
  int rowAt(int y) const { return y < rowHeight ? -1 : topRow + y / rowHeight - 1; }
};

}  // namespace kiv::win32
