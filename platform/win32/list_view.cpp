#include "platform/win32/list_view.h"

// Needs what windows.h declares.
#include <commctrl.h>

namespace kiv::win32 {
namespace {

constexpr UINT kSelectedAndFocused = LVIS_SELECTED | LVIS_FOCUSED;

}  // namespace

SystemListView::SystemListView(HWND handle, int& quietDepth) : Control(handle, quietDepth) {
  const DWORD style = LVS_EX_FULLROWSELECT;
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, static_cast<LPARAM>(style));
}

void SystemListView::setColumns(const std::vector<Column>& columns) {
  while (send(LVM_DELETECOLUMN, 0)) {
  }
  for (std::size_t at = 0; at < columns.size(); ++at) {
    std::wstring title = columns[at].title;
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM | LVCF_FMT;
    column.fmt = columns[at].alignsRight ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.pszText = title.data();
    column.cx = columns[at].width;
    column.iSubItem = static_cast<int>(at);
    send(LVM_INSERTCOLUMNW, at, &column);
  }
}

void SystemListView::clear() {
  const auto silence = quiet();
  send(LVM_DELETEALLITEMS);
}

void SystemListView::addRow(const std::vector<std::wstring>& cells) {
  const auto silence = quiet();
  LVITEMW item{};
  item.iItem = rowCount();
  for (std::size_t column = 0; column < cells.size() || column == 0; ++column) {
    std::wstring text = column < cells.size() ? cells[column] : std::wstring();
    item.mask = LVIF_TEXT;
    item.iSubItem = static_cast<int>(column);
    item.pszText = text.data();
    send(column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, &item);
  }
}

int SystemListView::rowCount() const { return static_cast<int>(send(LVM_GETITEMCOUNT)); }

std::wstring SystemListView::cell(int row, int column) const {
  std::wstring text(256, L'\0');
  for (;;) {
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    const auto length = static_cast<std::size_t>(send(LVM_GETITEMTEXTW, static_cast<WPARAM>(row), &item));
    if (length + 1 < text.size()) {
      text.resize(length);
      return text;
    }
    text.resize(text.size() * 2);
  }
}

void SystemListView::setCell(int row, int column, std::wstring_view text) {
  const auto silence = quiet();
  std::wstring shown(text);
  LVITEMW item{};
  item.iSubItem = column;
  item.pszText = shown.data();
  send(LVM_SETITEMTEXTW, static_cast<WPARAM>(row), &item);
}

int SystemListView::selected() const {
  return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void SystemListView::setState(int row, UINT state, UINT mask) {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
}

void SystemListView::select(int row) {
  const auto silence = quiet();
  setState(-1, 0, kSelectedAndFocused);
  if (row < 0) return;
  setState(row, LVIS_SELECTED, LVIS_SELECTED);
  focus(row);
}

int SystemListView::selectedCount() const { return static_cast<int>(send(LVM_GETSELECTEDCOUNT)); }

std::vector<int> SystemListView::selectedRows() const {
  std::vector<int> rows;
  for (auto row = static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED)); row >= 0;
       row = static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED)))
    rows.push_back(row);
  return rows;
}

void SystemListView::selectRows(const std::vector<int>& rows) {
  const auto silence = quiet();
  if (static_cast<int>(rows.size()) == rowCount()) return setState(-1, LVIS_SELECTED, LVIS_SELECTED);
  setState(-1, 0, LVIS_SELECTED);
  for (const int row : rows) setState(row, LVIS_SELECTED, LVIS_SELECTED);
}

int SystemListView::focused() const {
  return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

void SystemListView::focus(int row) {
  const auto silence = quiet();
  setState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  send(LVM_SETSELECTIONMARK, 0, static_cast<LPARAM>(row));  // Shift goes from here
  send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void SystemListView::setSortMark(int column, bool ascending) {
  const auto header = reinterpret_cast<HWND>(send(LVM_GETHEADER));
  const auto count = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
  for (int each = 0; each < count; ++each) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    const auto at = static_cast<WPARAM>(each);
    SendMessageW(header, HDM_GETITEMW, at, reinterpret_cast<LPARAM>(&item));
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (each == column) item.fmt |= ascending ? HDF_SORTUP : HDF_SORTDOWN;
    SendMessageW(header, HDM_SETITEMW, at, reinterpret_cast<LPARAM>(&item));
  }
}

void SystemListView::setRedraw(bool on) {
  send(WM_SETREDRAW, on);
  if (on) InvalidateRect(handle(), nullptr, TRUE);
}

}  // namespace kiv::win32
