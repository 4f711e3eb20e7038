#include "platform/win32/grid_paint.h"

namespace kiv::win32 {
namespace {

void fill(HDC canvas, const Rect& area, int systemColor) {
  const RECT rect = systemRect(area);
  FillRect(canvas, &rect, GetSysColorBrush(systemColor));
}

// The line at the right and the bottom of a cell.
void drawLines(HDC canvas, const Rect& cell, int systemColor) {
  fill(canvas, {cell.right - 1, cell.top, cell.right, cell.bottom}, systemColor);
  fill(canvas, {cell.left, cell.bottom - 1, cell.right, cell.bottom}, systemColor);
}

void drawText(HDC canvas, const std::wstring& text, const Rect& cell, int padding, UINT alignment) {
  RECT inside{cell.left + padding, cell.top, cell.right - padding, cell.bottom};
  DrawTextW(canvas, text.c_str(), static_cast<int>(text.size()), &inside,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | alignment);
}

void drawFixed(HDC canvas, const GridLook& look, const Rect& cell, const std::wstring& text, UINT alignment,
               bool isCurrent) {
  fill(canvas, cell, isCurrent ? COLOR_HIGHLIGHT : COLOR_BTNFACE);
  drawLines(canvas, cell, COLOR_BTNSHADOW);
  SetTextColor(canvas, GetSysColor(isCurrent ? COLOR_HIGHLIGHTTEXT : COLOR_BTNTEXT));
  drawText(canvas, text, cell, look.layout.padding, alignment);
}

void drawRow(HDC canvas, const GridLook& look, int row) {
  const bool isCurrent = row == look.rows.current();
  drawFixed(canvas, look, look.layout.number(row), std::to_wstring(row + 1), DT_RIGHT, isCurrent);
  const Rect cell = look.layout.cell(row);
  drawLines(canvas, cell, COLOR_3DLIGHT);
  SetTextColor(canvas, GetSysColor(look.enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
  drawText(canvas, look.rows.text(row), cell, look.layout.padding, DT_LEFT);
}

}  // namespace

void paintGrid(HDC canvas, const GridLook& look) {
  const GridLayout& layout = look.layout;
  const HGDIOBJ font = SelectObject(canvas, look.font);
  SetBkMode(canvas, TRANSPARENT);
  fill(canvas, {0, 0, layout.width, layout.height}, look.enabled ? COLOR_WINDOW : COLOR_BTNFACE);
  drawFixed(canvas, look, layout.corner(), L"", DT_LEFT, false);
  drawFixed(canvas, look, layout.header(), look.title, DT_LEFT, false);
  for (int row = layout.topRow; row < look.rows.count() && layout.top(row) < layout.height; ++row)
    drawRow(canvas, look, row);
  SelectObject(canvas, font);
}

}  // namespace kiv::win32
