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
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
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

int SystemListView::selected() const {
  return static_cast<int>(send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void SystemListView::select(int row) {
  const auto silence = quiet();
  LVITEMW item{};
  item.stateMask = kSelectedAndFocused;
  send(LVM_SETITEMSTATE, static_cast<WPARAM>(-1), &item);
  if (row < 0) return;
  item.state = kSelectedAndFocused;
  send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), &item);
  send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

}  // namespace kiv::win32
