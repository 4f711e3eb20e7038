#include "platform/win32/grid_window.h"

#include <windowsx.h>

#include <algorithm>

#include "platform/screen_scale.h"
#include "platform/win32/grid.h"

namespace kiv::win32 {
namespace {

constexpr int kPadding = 3;  // pixels of the reference resolution, as the next
constexpr int kLeading = 4;
constexpr int kWheelRows = 3;

// A font of this size with no font given: the one that the system draws its own texts in.
HFONT standardFont() { return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)); }

// --- Painting

struct GridLook {
  const GridLayout& layout;
  const GridRows& rows;
  const std::wstring& title;
  HFONT font;
  bool enabled;
};

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

// The whole inner area.
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

}  // namespace

GridWindow::GridWindow(HWND handle) : handle_(handle), font_(standardFont()), editor_(handle) {
  SetWindowLongPtrW(handle, GWL_STYLE, GetWindowLongPtrW(handle, GWL_STYLE) | WS_VSCROLL | WS_CLIPCHILDREN);
  // The inner area shrinks by the scroll bar.
  SetWindowPos(handle, nullptr, 0, 0, 0, 0,
               SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  measure();
}

GridWindow* GridWindow::of(HWND handle) {
  return isOfClass(handle, kGridClass) ? reinterpret_cast<GridWindow*>(GetWindowLongPtrW(handle, 0))
                                       : nullptr;
}

void GridWindow::setTitle(std::wstring_view title) {
  title_ = title;
  InvalidateRect(handle_, nullptr, FALSE);
}

void GridWindow::setRowCount(int count) {
  const int before = rows_.current();
  rows_.resize(count);
  if (rows_.current() != before) editor_.open(rows_.text(rows_.current()));
  scrollTo(layout_.topRow);
}

void GridWindow::setText(int row, std::wstring_view text) {
  if (!rows_.setText(row, text)) return;
  if (row == rows_.current()) editor_.open(text);
  InvalidateRect(handle_, nullptr, FALSE);
}

void GridWindow::goTo(int row) {
  if (rows_.moveTo(row)) editor_.open(rows_.text(rows_.current()));
  showCurrentRow();
}

void GridWindow::choose(int row) {
  const int before = rows_.current();
  goTo(row);
  if (rows_.current() == before) return;
  NMHDR notice{handle_, static_cast<UINT_PTR>(GetDlgCtrlID(handle_)), kGridRowChosen};
  SendMessageW(GetParent(handle_), WM_NOTIFY, notice.idFrom, reinterpret_cast<LPARAM>(&notice));
}

void GridWindow::measure() {
  const HDC canvas = GetDC(handle_);
  const HGDIOBJ before = SelectObject(canvas, font_);
  SIZE number{};
  GetTextExtentPoint32W(canvas, L"0000", 4, &number);
  SelectObject(canvas, before);
  ReleaseDC(handle_, canvas);
  layout_.padding = scaled(kPadding);
  layout_.leading = scaled(kLeading);
  layout_.rowHeight = number.cy + layout_.leading;
  layout_.numberWidth = number.cx + 2 * layout_.padding;
  editor_.setFont(font_, layout_.padding);
  arrange();
}

void GridWindow::arrange() {
  RECT inside{};
  GetClientRect(handle_, &inside);
  layout_.width = inside.right;
  layout_.height = inside.bottom;
  scrollTo(layout_.topRow);
}

void GridWindow::scrollTo(int topRow) {
  layout_.topRow = layout_.topFor(topRow, rows_.count());
  updateScrollBar();
  const int row = rows_.current();
  editor_.place(rows_.has(row) ? layout_.editor(row) : Rect());
  InvalidateRect(handle_, nullptr, FALSE);
}

void GridWindow::showCurrentRow() { scrollTo(layout_.topShowing(std::max(rows_.current(), 0))); }

void GridWindow::updateScrollBar() {
  SCROLLINFO scroll{};
  scroll.cbSize = sizeof scroll;
  scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  scroll.nMax = std::max(0, rows_.count() - 1);
  scroll.nPage = static_cast<UINT>(layout_.page());
  scroll.nPos = layout_.topRow;
  SetScrollInfo(handle_, SB_VERT, &scroll, TRUE);
}

// On a canvas of its own first: nothing flickers.
void GridWindow::paint() {
  PAINTSTRUCT painting{};
  const HDC screen = BeginPaint(handle_, &painting);
  const HDC canvas = CreateCompatibleDC(screen);
  const HBITMAP picture =
      CreateCompatibleBitmap(screen, std::max(1, layout_.width), std::max(1, layout_.height));
  const HGDIOBJ before = SelectObject(canvas, picture);
  paintGrid(canvas, {layout_, rows_, title_, font_, IsWindowEnabled(handle_) != FALSE});
  BitBlt(screen, 0, 0, layout_.width, layout_.height, canvas, 0, 0, SRCCOPY);
  SelectObject(canvas, before);
  DeleteObject(picture);
  DeleteDC(canvas);
  EndPaint(handle_, &painting);
}

int GridWindow::rowByKey(WPARAM key) const {
  const int row = rows_.current();
  const bool wholeGrid = !editor_.isEditing() || GetKeyState(VK_CONTROL) < 0;
  switch (key) {
    case VK_UP:
      return std::max(row - 1, 0);
    case VK_DOWN:
    case VK_RETURN:
      return row + 1;
    case VK_PRIOR:
      return std::max(row - layout_.page(), 0);
    case VK_NEXT:
      return row + layout_.page();
    case VK_HOME:
      return wholeGrid ? 0 : -1;
    case VK_END:
      return wholeGrid ? rows_.count() - 1 : -1;
    default:
      return -1;
  }
}

bool GridWindow::takeKey(WPARAM key) {
  if (!rows_.has(rows_.current())) return false;
  if (key == VK_F2) {
    editor_.beginEditing();
    return true;
  }
  if (key == VK_ESCAPE) return editor_.cancel();
  if (key == VK_LEFT || key == VK_RIGHT) editor_.noteCaretMove();
  const int row = rowByKey(key);
  if (row < 0) return false;
  editor_.commit();
  choose(row);
  return true;
}

void GridWindow::takeWheel(int turned) {
  wheel_ += turned;
  const int steps = wheel_ / WHEEL_DELTA;
  wheel_ -= steps * WHEEL_DELTA;
  scrollTo(layout_.topRow - steps * kWheelRows);
}

void GridWindow::takeScroll(WORD request) {
  SCROLLINFO scroll{};
  scroll.cbSize = sizeof scroll;
  scroll.fMask = SIF_TRACKPOS;
  GetScrollInfo(handle_, SB_VERT, &scroll);
  switch (request) {
    case SB_LINEUP:
      return scrollTo(layout_.topRow - 1);
    case SB_LINEDOWN:
      return scrollTo(layout_.topRow + 1);
    case SB_PAGEUP:
      return scrollTo(layout_.topRow - layout_.page());
    case SB_PAGEDOWN:
      return scrollTo(layout_.topRow + layout_.page());
    case SB_TOP:
      return scrollTo(0);
    case SB_BOTTOM:
      return scrollTo(rows_.count());
    case SB_THUMBTRACK:
      return scrollTo(scroll.nTrackPos);
    default:
      break;
  }
}

void GridWindow::takeClick(LPARAM place) {
  takeFocus();
  const int row = layout_.rowAt(GET_Y_LPARAM(place));
  if (!rows_.has(row)) return;
  editor_.commit();
  choose(row);
}

void GridWindow::takeFocus() { SetFocus(rows_.count() > 0 ? editor_.handle() : handle_); }

RECT GridWindow::shownCell(int row) {
  scrollTo(layout_.topShowing(row));
  return systemRect(layout_.cell(row));
}

LRESULT GridWindow::take(UINT message, WPARAM first, LPARAM second) {
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_SIZE:
      arrange();
      return 0;
    case WM_SETFONT:
      font_ = first ? reinterpret_cast<HFONT>(first) : standardFont();
      measure();
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(font_);
    case WM_ENABLE:
      EnableWindow(editor_.handle(), first != 0);
      InvalidateRect(handle_, nullptr, FALSE);
      return 0;
    case WM_SETFOCUS:
      if (rows_.count() > 0) SetFocus(editor_.handle());
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS;
    case WM_KEYDOWN:
      return takeKey(first) ? 0 : 1;
    case WM_VSCROLL:
      takeScroll(LOWORD(first));
      return 0;
    case WM_MOUSEWHEEL:
      takeWheel(GET_WHEEL_DELTA_WPARAM(first));
      return 0;
    case WM_LBUTTONDOWN:
    case kGridChooseAt:
      takeClick(second);
      return 0;
    case WM_LBUTTONDBLCLK:
      takeClick(second);
      editor_.beginEditing();
      return 0;
    case WM_COMMAND:
      if (HIWORD(first) == EN_CHANGE && !editor_.isQuiet()) {
        rows_.setText(rows_.current(), editor_.text());
        editor_.noteChange();
      }
      return 0;
    case kGridRowRect:
      *reinterpret_cast<RECT*>(second) = systemRect(layout_.cell(rows_.current()));
      return TRUE;
    case kGridShowRow:
      if (!rows_.has(static_cast<int>(first))) return FALSE;
      *reinterpret_cast<RECT*>(second) = shownCell(static_cast<int>(first));
      return TRUE;
    default:
      return DefWindowProcW(handle_, message, first, second);
  }
}

}  // namespace kiv::win32
