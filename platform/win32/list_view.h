#pragma once
// A list view of the system, in its report form.

#include "platform/dialog_window.h"
#include "platform/win32/control.h"

namespace kiv::win32 {

class SystemListView final : public ListView, public Control {
 public:
  SystemListView(HWND handle, int& quietDepth);

  void setColumns(const std::vector<Column>& columns) override;
  void clear() override;
  void addRow(const std::vector<std::wstring>& cells) override;
  int rowCount() const override;
  std::wstring cell(int row, int column) const override;
  void setCell(int row, int column, std::wstring_view text) override;
  int selected() const override;
  void select(int row) override;
  int selectedCount() const override;
  std::vector<int> selectedRows() const override;
  void selectRows(const std::vector<int>& rows) override;
  int focused() const override;
  void focus(int row) override;
  void setSortMark(int column, bool ascending) override;
  void setRedraw(bool on) override;

 private:
  void setState(int row, UINT state, UINT mask);  // -1: of all rows
};

}  // namespace kiv::win32
